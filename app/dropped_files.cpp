#include "app/dropped_files.h"

#include "app/dialogs/data_type_filters.h"
#include "app/message_box.h"
#include "app/messages.h"
#include "app/settings.h"
#include "files/hit_list.h"

#include <QDir>
#include <QFileInfo>
#include <QMimeData>
#include <QUrl>

#include <string>

namespace {

bool IsHitList(const QFileInfo& info) {
    return info.suffix().compare(QLatin1String("hit"), Qt::CaseInsensitive) == 0;
}

std::string NativePath(const QString& path) {
    return QDir::toNativeSeparators(path).toStdString();
}

void AppendFolder(CDroppedFiles& dropped, const QString& folder, const QString& wildcard) {
    const QFileInfoList entries = QDir(folder).entryInfoList({wildcard}, QDir::Files, QDir::Name);
    for (const QFileInfo& entry : entries) dropped.files.push_back(NativePath(entry.filePath()));
}

void AppendHitList(CDroppedFiles& dropped, const QString& path) {
    const auto lines = ks::ReadHitList(path.toStdString());
    if (!lines) {
        dropped.unreadableHitLists.append(path);
        return;
    }
    dropped.hitLists.append(path);
    dropped.files.insert(dropped.files.end(), lines->begin(), lines->end());
}

}  // namespace

QStringList LocalPaths(const QMimeData& data) {
    QStringList paths;
    const QList<QUrl> urls = data.urls();
    for (const QUrl& url : urls) {
        if (url.isLocalFile()) paths.append(url.toLocalFile());
    }
    return paths;
}

CDroppedFiles ExpandDropped(const QStringList& paths, const QString& wildcard) {
    CDroppedFiles dropped;
    for (const QString& path : paths) {
        const QFileInfo info(path);
        if (info.isDir()) {
            AppendFolder(dropped, path, wildcard);
        } else if (IsHitList(info)) {
            AppendHitList(dropped, path);
        } else {
            dropped.files.push_back(NativePath(path));
        }
    }
    return dropped;
}

CDroppedFiles TakeDroppedFiles(const QStringList& paths, CSettings& settings, CMessages& messages, QWidget* parent) {
    CDroppedFiles dropped = ExpandDropped(paths, CurrentDataTypeWildcard(settings));
    for (const QString& hitList : dropped.hitLists) settings.AddRecentFile(hitList);
    if (!dropped.unreadableHitLists.isEmpty()) messages.ShowError(parent, app_message::kHitListUnreadable);
    return dropped;
}
