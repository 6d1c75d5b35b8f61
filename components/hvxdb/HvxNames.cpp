#include "components/hvxdb/HvxNames.h"

#include "components/hvxdb/HvxAdministration.h"
#include "components/hvxdb/SqlFailure.h"

#include <algorithm>

QString TrimBlanks(const QString& text)
{
    qsizetype first = 0;
    qsizetype last = text.size();
    while (first < last && text.at(first) == u' ')
        ++first;
    while (last > first && text.at(last - 1) == u' ')
        --last;
    return text.mid(first, last - first);
}

QString FoldedName(const QString& name)
{
    return TrimBlanks(name).toCaseFolded();
}

QString StoredName(const QString& name)
{
    QString stored = TrimBlanks(name);
    if (stored.isEmpty())
        RaiseRefusal(QStringLiteral("A name is missing."));
    return stored;
}

bool NeedsOwnKey(const QString& name)
{
    return std::any_of(name.cbegin(), name.cend(),
                       [](QChar character) { return character.unicode() > 0x7f; });
}
