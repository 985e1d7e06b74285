#include "app/resources.h"

#include <QFile>

/// The linker drops the resources of a static library unless they are requested, from outside any namespace.
static void LoadResources() {
    Q_INIT_RESOURCE(quorvel);
}

QIcon ApplicationIcon() {
    LoadResources();
    return QIcon(QStringLiteral(":/icons/quorvel.svg"));
}

QIcon CommandIcon(const QString& name) {
    LoadResources();
    const QString path = QStringLiteral(":/icons/%1.svg").arg(name);
    return QFile::exists(path) ? QIcon(path) : QIcon();  // an icon of a missing file would not be null
}
