#pragma once

#include "compare/setting_keys.h"

#include <QByteArray>
#include <QSettings>
#include <QString>
#include <QStringList>

/// What the program remembers for a user: the values of the group "Settings", the recent files in "Recent File List",
/// and the layout of the main window in "Main Window".
class CSettings {
public:
    /// `store` must outlive the settings.
    explicit CSettings(QSettings& store) : m_store(store) {}

    /// Organization and application under which the program's own store lives.
    static constexpr const char* kOrganization = "Ostrel Crashworthiness";
    static constexpr const char* kApplication = "Quorvel";
    static constexpr int kRecentFileCount = 4;

    [[nodiscard]] QString Get(const CTextSetting& key) const;
    /// A stored text that is not a whole number counts as missing.
    [[nodiscard]] int Get(const CNumberSetting& key) const;
    void Set(const CTextSetting& key, const QString& value);
    void Set(const CNumberSetting& key, int value);

    /// Paths of the recent files, newest first, at most four, in native form.
    [[nodiscard]] QStringList RecentFiles() const;
    /// Puts `path`, made absolute, first; removes an older entry of the same file, and the fifth entry.
    void AddRecentFile(const QString& path);
    void RemoveRecentFile(const QString& path);

    /// Layout of the main window as QWidget::saveGeometry and QMainWindow::saveState give it; initially empty.
    [[nodiscard]] QByteArray WindowGeometry() const;
    [[nodiscard]] QByteArray WindowState() const;
    void SetWindowLayout(const QByteArray& geometry, const QByteArray& state);
    [[nodiscard]] bool IsToolbarShown() const;  ///< initially true
    void SetToolbarShown(bool isShown);
    [[nodiscard]] bool IsStatusBarShown() const;  ///< initially true
    void SetStatusBarShown(bool isShown);
    /// Ids of the toolbar's actions that are not shown; initially only "PrintDirect", which prints without asking.
    [[nodiscard]] QStringList HiddenToolbarActions() const;
    void SetHiddenToolbarActions(const QStringList& ids);

private:
    void StoreRecentFiles(const QStringList& files);

    QSettings& m_store;
};
