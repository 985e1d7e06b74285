#pragma once

#include <QString>
#include <QStringList>
#include <string>
#include <vector>

class CMessages;
class CSettings;
class QMimeData;
class QWidget;

/// What the files, hit lists and folders that a user dropped amount to.
struct CDroppedFiles {
    std::vector<std::string> files;  ///< signal files in the order dropped; UTF-8, hit-list lines as they stand
    QStringList hitLists;            ///< the hit lists that were read
    QStringList unreadableHitLists;
};

/// The local paths that a drag brings; empty when it brings none.
QStringList LocalPaths(const QMimeData& data);

/// Replaces every hit list (*.hit) by its lines and every folder by its own files that match `wildcard`, sorted by
/// name; folders inside are not entered. A path that leads nowhere is kept.
CDroppedFiles ExpandDropped(const QStringList& paths, const QString& wildcard);

/// The same with the data type of `settings`. Hit lists become recent files; those that cannot be read are reported
/// once above `parent`.
CDroppedFiles TakeDroppedFiles(const QStringList& paths, CSettings& settings, CMessages& messages, QWidget* parent);
