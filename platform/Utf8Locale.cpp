#include "platform/Utf8Locale.h"

#include <QByteArray>

#include <clocale>
#include <langinfo.h>
#include <string_view>

void ChooseUtf8Locale()
{
    std::setlocale(LC_CTYPE, "");
    if (std::string_view(nl_langinfo(CODESET)) != "UTF-8")
        qputenv("LC_ALL", "C.UTF-8");
}
