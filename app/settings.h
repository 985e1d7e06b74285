#pragma once

#include <QByteArray>
#include <QSettings>
#include <QString>
#include <QStringList>

/// A setting that holds a text, and what it is while it was never stored.
class CTextSetting {
public:
    const char* name;
    const char* fallback;
};

/// A setting that holds a whole number, and what it is while it was never stored.
class CNumberSetting {
public:
    const char* name;
    int fallback;
};

/// Every value of the group "Settings". The names are stored on users' machines: frozen.
namespace setting {
inline constexpr CTextSetting kInputDir{"InputDir", "Q:\\uds\\vehdb"};          ///< picker of computed files
inline constexpr CTextSetting kReferenceDir{"ReferenceDir", "Q:\\uds\\vehdb"};  ///< picker of the reference
inline constexpr CNumberSetting kDataType{"DataType", 3};                       ///< filter of both pickers, 1-based
inline constexpr CNumberSetting kReferenceType{"ReferenceType", 0};       ///< 1: "Compare to Average"; only written
inline constexpr CTextSetting kHitlistDir{"HitlistDir", "c:\\"};          ///< pickers of hit lists
inline constexpr CTextSetting kUdsOutputDir{"UdsOutputDir", "C:\\"};      ///< UDS output and HTML report
inline constexpr CTextSetting kAsciiOutputDir{"AsciiOutputDir", "C:\\"};  ///< ASCII output
}  // namespace setting

/// What the program remembers for a user: the values of the group "Settings", the recent files in "Recent File List"
/// and the layout of the main window in "Main Window".
class CSettings {
public:
    /// `store` must outlive the settings.
    explicit CSettings(QSettings& store) : m_store(store) {}

    /// Organisation and application under which the program's own store lives.
    static constexpr const char* kOrganisation = "Ostrel Crashworthiness";
    static constexpr const char* kApplication = "Quorvel";
    static constexpr int kRecentFileCount = 4;

    QString Get(const CTextSetting& key) const;
    /// A stored text that is no whole number counts as never stored.
    int Get(const CNumberSetting& key) const;
    void Set(const CTextSetting& key, const QString& value);
    void Set(const CNumberSetting& key, int value);

    /// A text of the group "Settings" by its name, for the document, which brings its own fallbacks.
    QString Text(const QString& name, const QString& fallback) const;
    void SetText(const QString& name, const QString& value);

    /// Paths of the recent files, newest first, at most four, in native form.
    QStringList RecentFiles() const;
    /// Puts `path`, made absolute, first; an older entry of the same file goes, and so does the fifth.
    void AddRecentFile(const QString& path);
    void RemoveRecentFile(const QString& path);

    /// Layout of the main window as QWidget::saveGeometry and QMainWindow::saveState give it; empty at first.
    QByteArray WindowGeometry() const;
    QByteArray WindowState() const;
    void SetWindowLayout(const QByteArray& geometry, const QByteArray& state);
    bool IsToolbarShown() const;  ///< true at first
    void SetToolbarShown(bool isShown);
    bool IsStatusBarShown() const;  ///< true at first
    void SetStatusBarShown(bool isShown);
    /// Ids of the toolbar's actions that the user switched off; empty at first.
    QStringList HiddenToolbarActions() const;
    void SetHiddenToolbarActions(const QStringList& ids);

private:
    void StoreRecentFiles(const QStringList& files);

    QSettings& m_store;
};
