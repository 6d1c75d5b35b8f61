#include "dialogs/DialogState.h"

#include "model/ConOrderClass.h"

#include <QWidget>

namespace {
constexpr int PictureSize = 48;
}

DialogState& Dialogs()
{
    static DialogState state;
    return state;
}

QPixmap ConPicturePixmap(int pictureIndex, const QWidget& widget)
{
    const auto& pictures = Dialogs().ConPictures;
    const auto index = static_cast<std::size_t>(qMax(0, pictureIndex));
    const QIcon& picture = pictureIndex >= 0 && index < pictures.size() && !pictures[index].isNull()
                               ? pictures[index]
                               : pictures[ConOrderClass::UnknownPicture];
    return picture.pixmap(QSize(PictureSize, PictureSize), widget.devicePixelRatioF());
}
