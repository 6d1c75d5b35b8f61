#include "dialogs/DialogState.h"

#include "model/ConOrderClass.h"

#include <QWidget>

namespace {

constexpr int PictureSize = 48;

/// Empty when there is none.
QIcon PictureAt(int index)
{
    const auto& pictures = Dialogs().ConPictures;
    const auto place = static_cast<std::size_t>(index);
    if (index >= 0 && place < pictures.size() && !pictures[place].isNull())
        return pictures[place];
    return Dialogs().PictureOfType ? Dialogs().PictureOfType(index) : QIcon();
}

} // namespace

DialogState& Dialogs()
{
    static DialogState state;
    return state;
}

QPixmap ConPicturePixmap(int pictureIndex, const QWidget& widget)
{
    QIcon picture = PictureAt(pictureIndex);
    if (picture.isNull())
        picture = PictureAt(ConOrderClass::UnknownPicture);
    return picture.pixmap(QSize(PictureSize, PictureSize), widget.devicePixelRatioF());
}
