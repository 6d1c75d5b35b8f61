#pragma once

#include <QString>

class QVersionNumber;

/// Which file is registered for a component, and which version that file has.
///
/// What is registered stands in the store of named values (NamedValues), under
/// `HKEY_CLASSES_ROOT/<programmatic identifier>/Clsid` and
/// `HKEY_CLASSES_ROOT/CLSID/<class identifier>/InprocServer32` or `LocalServer32`.

/// Programmatic identifier of the control.
inline const QString ControlProgId = QStringLiteral("Zelka_T4Browser.T4ZelkaBrowser");
/// Its class identifier.
inline const QString ControlClassId = QStringLiteral("{B4E0C9A2-52D7-4F0B-9C3E-7A1D86F25E43}");

/// The file of a registered component: the one that is loaded into a program, else the program that serves
/// it. Empty when nothing is registered.
[[nodiscard]] QString GetComponentPath(const QString& progId);

/// A file's version: major number, ".", minor number in two digits, ".", build number in four. Read from the
/// metadata that a plugin or the library carries, without loading it. A file that is not there or has no
/// version: "No Version Info available!".
[[nodiscard]] QString GetComponentFileVersion(const QString& path);

/// What else the version record tells: the version of Qt that the file was built for, and that it was built
/// for debugging. Empty when there is no record.
[[nodiscard]] QString GetComponentFileDetails(const QString& path);

/// A version in the format of GetComponentFileVersion.
[[nodiscard]] QString FormattedVersion(const QVersionNumber& version);

/// Registers a file for the control, for this user, whichever was registered before.
void RegisterControl(const QString& path);

/// Registers a file for the control unless one that is there is registered already.
void RegisterControlOnce(const QString& path);
