#pragma once

#include <QStringList>

/// Splits a script into statements. A statement ends at a line that ends in ";", a trigger at the line
/// "END;". Comments must stand on lines of their own; they are left out.
QStringList SplitSqlScript(const QString& script);
