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
    QString folded = TrimBlanks(name);
    if (NeedsOwnKey(folded))
        return folded.toCaseFolded();
    // Nearly all names: plain letters, whose case is one bit.
    for (qsizetype i = 0; i < folded.size(); ++i) {
        const char16_t letter = folded.at(i).unicode();
        if (letter >= u'A' && letter <= u'Z')
            folded[i] = QChar(letter | 0x20);
    }
    return folded;
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

QString TakenName(const QString& name)
{
    return QStringLiteral("The name %1 is taken.").arg(name);
}
