#pragma once

#include <QString>

class QLabel;

/// What the control knows of a connection by its type.

/// Type id of a stored connection; negative: unknown, or a look-up failed (then `conTypeName` as it was).
[[nodiscard]] int GetConPicture(const QString& name, QString& conTypeName);

/// A stored connection reaches its nodes by SNMP; nothing can be scanned there. Asks the database.
[[nodiscard]] bool IsSnmpConnection(const QString& name);

/// Shows the picture of a type; an unknown one where the type is negative or not offered.
void ShowTypePicture(QLabel& image, int type);
