#include "app/settings.h"

#include "compare/setting_keys.h"

#include <QDir>
#include <QFileInfo>

namespace {

constexpr const char* kGeometryKey = "Main Window/Geometry";
constexpr const char* kStateKey = "Main Window/State";
constexpr const char* kToolbarKey = "Main Window/Toolbar";
constexpr const char* kStatusBarKey = "Main Window/StatusBar";
constexpr const char* kHiddenActionsKey = "Main Window/HiddenToolbarActions";

QString ValueKey(const char* name) {
    return QStringLiteral("Settings/") + QLatin1String(name);
}

QString RecentFileKey(qsizetype index) {
    return QStringLiteral("Recent File List/File%1").arg(index + 1);
}

QString FullNativePath(const QString& path) {
    return QDir::toNativeSeparators(QDir::cleanPath(QFileInfo(path).absoluteFilePath()));
}

#ifdef Q_OS_WIN
constexpr Qt::CaseSensitivity kPathCase = Qt::CaseInsensitive;
#else
constexpr Qt::CaseSensitivity kPathCase = Qt::CaseSensitive;
#endif

void RemovePath(QStringList& files, const QString& path) {
    files.removeIf([&](const QString& file) { return file.compare(path, kPathCase) == 0; });
}

}  // namespace

QString CSettings::Get(const CTextSetting& key) const {
    return m_store.value(ValueKey(key.name), QString::fromLatin1(key.fallback)).toString();
}

int CSettings::Get(const CNumberSetting& key) const {
    bool isNumber = false;
    const int number = m_store.value(ValueKey(key.name)).toInt(&isNumber);
    return isNumber ? number : key.fallback;
}

void CSettings::Set(const CTextSetting& key, const QString& value) {
    m_store.setValue(ValueKey(key.name), value);
}

void CSettings::Set(const CNumberSetting& key, int value) {
    m_store.setValue(ValueKey(key.name), value);
}

QStringList CSettings::RecentFiles() const {
    QStringList files;
    for (int i = 0; i < kRecentFileCount; ++i) {
        const QString file = m_store.value(RecentFileKey(i)).toString();
        if (!file.isEmpty()) files.append(file);
    }
    return files;
}

void CSettings::AddRecentFile(const QString& path) {
    m_store.sync();  // another window of the program may have added files since
    QStringList files = RecentFiles();
    const QString full = FullNativePath(path);
    RemovePath(files, full);
    files.prepend(full);
    StoreRecentFiles(files);
}

void CSettings::RemoveRecentFile(const QString& path) {
    m_store.sync();
    QStringList files = RecentFiles();
    RemovePath(files, FullNativePath(path));
    StoreRecentFiles(files);
}

void CSettings::StoreRecentFiles(const QStringList& files) {
    for (qsizetype i = 0; i < kRecentFileCount; ++i) {
        if (i < files.size()) {
            m_store.setValue(RecentFileKey(i), files[i]);
        } else {
            m_store.remove(RecentFileKey(i));
        }
    }
}

QByteArray CSettings::WindowGeometry() const {
    return m_store.value(QLatin1String(kGeometryKey)).toByteArray();
}

QByteArray CSettings::WindowState() const {
    return m_store.value(QLatin1String(kStateKey)).toByteArray();
}

void CSettings::SetWindowLayout(const QByteArray& geometry, const QByteArray& state) {
    m_store.setValue(QLatin1String(kGeometryKey), geometry);
    m_store.setValue(QLatin1String(kStateKey), state);
}

QStringList CSettings::HiddenToolbarActions() const {
    return m_store.value(QLatin1String(kHiddenActionsKey), QStringList(QStringLiteral("PrintDirect"))).toStringList();
}

void CSettings::SetHiddenToolbarActions(const QStringList& ids) {
    m_store.setValue(QLatin1String(kHiddenActionsKey), ids);
}

bool CSettings::IsToolbarShown() const {
    return m_store.value(QLatin1String(kToolbarKey), true).toBool();
}

void CSettings::SetToolbarShown(bool isShown) {
    m_store.setValue(QLatin1String(kToolbarKey), isShown);
}

bool CSettings::IsStatusBarShown() const {
    return m_store.value(QLatin1String(kStatusBarKey), true).toBool();
}

void CSettings::SetStatusBarShown(bool isShown) {
    m_store.setValue(QLatin1String(kStatusBarKey), isShown);
}
