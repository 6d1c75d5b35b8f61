#include "browser/ConnectionPictures.h"

#include <QtGlobal>

QIcon ConnectionPicture(int index)
{
    if (index < 0 || index >= ConnectionPictureCount)
        return {};
    return QIcon(QStringLiteral(":/zelka/pictures/con%1.svg").arg(index, 2, 10, QLatin1Char('0')));
}

void RegisterPictures()
{
    Q_INIT_RESOURCE(pictures);
}
