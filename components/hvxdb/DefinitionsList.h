#pragma once

#include <QString>
#include <QStringView>

/// Composes an item list: items separated by one tab, none at the end.
///
/// Tabs and other control characters inside an item become blanks, so that an item stays one item.
class DefinitionsList
{
public:
    /// `characters`: a guess of the whole length.
    explicit DefinitionsList(qsizetype characters = 0) { m_text.reserve(characters); }

    void Add(QStringView item);
    void AddNumber(qsizetype number);

    /// The list. Empty items at its end are left out: readers take them as empty anyway, and they would take
    /// a tab at the end as part of an item.
    [[nodiscard]] QString Take();

private:
    void Separate();

    QString m_text;
    bool m_started = false;
};
