#include "browser/ConnectionTypes.h"

#include "browser/ConnectionPictures.h"
#include "database/Gateway.h"
#include "model/ItemList.h"
#include "model/LookupHelpers.h"
#include "model/ModelState.h"
#include "model/TextHelpers.h"

#include <QLabel>

namespace {

/// GetConPicture's answer where there is no picture.
constexpr int NoPicture = -1;

} // namespace

int GetConPicture(const QString& name, QString& conTypeName)
{
    QString target;
    QString result;
    if (TrimBlanks(name).isEmpty() || !Gateway().GetParentDb(name, target) ||
        !Gateway().AnalyzeConTypeDb(target, result))
        return NoPicture;
    conTypeName = GetItem(result, 2, TabChar);
    return qMax(NoPicture, ValInt(GetItem(result, 1, TabChar)));
}

bool IsSnmpConnection(const QString& name)
{
    QString typeName;
    const int type = GetConTypeOfParent(name, typeName);
    return IsSnmpConType(type, typeName);
}

void ShowTypePicture(QLabel& image, int type)
{
    const int shown = type < 0 ? NoConType : type;
    const int picture = Model().ConOrderObject ? Model().ConOrderObject->GetPicIndxByResourcePos(shown)
                                               : ConOrderClass::UnknownPicture;
    image.setProperty("picture", picture);
    image.setPixmap(ConnectionPicture(picture).pixmap(image.size(), image.devicePixelRatioF()));
}
