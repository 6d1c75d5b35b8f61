#include "tools/zelka/CsvText.h"

#include <algorithm>

void AppendCsvField(QByteArray& line, QByteArrayView field)
{
    const bool quoted = std::any_of(field.begin(), field.end(),
                                    [](char c) { return c == ',' || c == '"' || c == '\r' || c == '\n'; });
    if (!quoted) {
        line.append(field);
        return;
    }
    line.append('"');
    for (const char c : field) {
        if (c == '"')
            line.append('"');
        line.append(c);
    }
    line.append('"');
}

void AppendCsvRecord(QByteArray& text, std::initializer_list<QByteArrayView> fields)
{
    bool first = true;
    for (const QByteArrayView field : fields) {
        if (!first)
            text.append(',');
        first = false;
        AppendCsvField(text, field);
    }
    text.append("\r\n");
}
