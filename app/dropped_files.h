#pragma once

#include <QString>
#include <QStringList>

#include <string>
#include <vector>

class CMessages;
class CSettings;
class QMimeData;
class QWidget;

/// The signal files and hit lists among what a user dropped.
struct CDroppedFiles {
    std::vector<std::string> files;  ///< signal files in the order dropped; UTF-8, hit-list lines unchanged
    QStringList hitLists;            ///< the hit lists that were read
    QStringList unreadableHitLists;
};

/// The local paths in a drag; empty when it has none.
QStringList LocalPaths(const QMimeData& data);

/// Replaces every hit list (*.hit) by its lines and every folder by its own files that match `wildcard`, sorted by
/// name, without subfolders. A path to nothing is kept.
CDroppedFiles ExpandDropped(const QStringList& paths, const QString& wildcard);

/// The same with the data type of `settings`. Hit lists become recent files; one message above `parent` reports
/// those that cannot be read.
CDroppedFiles TakeDroppedFiles(const QStringList& paths, CSettings& settings, CMessages& messages, QWidget* parent);
