#pragma once

#include <QByteArray>
#include <QByteArrayView>

/// Writes comma-separated values as RFC 4180 tells.

/// Appends a field; quotes it where it needs them.
void AppendCsvField(QByteArray& line, QByteArrayView field);

/// Appends the fields of one record and the end of the line (CR LF).
void AppendCsvRecord(QByteArray& text, std::initializer_list<QByteArrayView> fields);
