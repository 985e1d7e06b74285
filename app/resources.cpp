#include "app/resources.h"

#include <QString>

/// The linker drops the resources of a static library unless somebody asks for them, from outside any namespace.
static void LoadResources() {
    Q_INIT_RESOURCE(quorvel);
}

QIcon ApplicationIcon() {
    LoadResources();
    return QIcon(QStringLiteral(":/icons/quorvel.svg"));
}
