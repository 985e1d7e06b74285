#include "app/path_menu.h"

#include "files/one_line.h"

namespace {

constexpr qsizetype kLongestEntry = 100;  // characters of a path
constexpr int kMnemonicCount = 9;

QString Shortened(const QString& path) {
    if (path.size() <= kLongestEntry) return path;
    constexpr qsizetype kHalf = kLongestEntry / 2;
    return path.left(kHalf) + QChar(0x2026) + path.right(kHalf);
}

QString EntryText(int number, const QString& path) {
    QString shown = Shortened(QString::fromStdString(ks::OneLine(path.toStdString())));  // a tab starts the shortcut
    shown.replace(QLatin1Char('&'), QLatin1String("&&"));
    return (number <= kMnemonicCount ? QStringLiteral("&%1 ") : QStringLiteral("%1 ")).arg(number) + shown;
}

}  // namespace

CPathMenu::CPathMenu(const QString& title, QWidget* parent) : QMenu(title, parent) {}

void CPathMenu::SetPaths(const QStringList& paths) {
    clear();
    int number = 1;
    for (const QString& path : paths) {
        QAction* const action = addAction(EntryText(number, path));
        action->setStatusTip(path);
        connect(
            action, &QAction::triggered, this, [this, path] { emit PathChosen(path); }, Qt::QueuedConnection);
        ++number;
    }
}
