#pragma once

#include "scan/frmScanNotSavedList.h"
#include "tests/scan/SaveFormsFixture.h"

#include <QListWidget>

#include <optional>

/// The list of nodes that are not saved, over the records of SaveFixture.
class NotSavedFixture : public SaveFormsFixture
{
public:
    using SaveFormsFixture::SaveFormsFixture;

    /// Shows nodes of these names; forgets what opening recorded.
    void Open(const QStringList& names)
    {
        FindNodes(names);
        Show<frmScanNotSavedList>();
        Forget();
    }
    /// Expects to be asked for names, in this order; nothing is Cancel.
    void Type(std::initializer_list<std::optional<QString>> names) { Operator.Inputs = names; }

    [[nodiscard]] QListWidget& List() const { return Find<QListWidget>("lstNotSavedNodes"); }
    [[nodiscard]] QStringList Lines() const
    {
        QStringList lines;
        for (int line = 0; line < List().count(); ++line)
            lines << List().item(line)->text();
        return lines;
    }
    /// Names, "!" behind those that exist, "+" behind those that are too long.
    [[nodiscard]] QStringList Shown() const
    {
        QStringList shown;
        for (const QString& line : Lines())
            shown << line.mid(7, 40).trimmed() +
                         (line.mid(47, 4) == u" Yes" ? QStringLiteral("!") : QString()) +
                         (line.endsWith(u"Yes") ? QStringLiteral("+") : QString());
        return shown;
    }
    [[nodiscard]] QList<int> Selected() const
    {
        QList<int> lines;
        for (int line = 0; line < List().count(); ++line) {
            if (List().item(line)->isSelected())
                lines << line;
        }
        return lines;
    }
    void ClickLine(int line, Qt::KeyboardModifiers keys = {}) const
    {
        QTest::mouseClick(List().viewport(), Qt::LeftButton, keys,
                          List().visualItemRect(List().item(line)).center());
    }
    /// Of "rename", "save", "replace", "manager", "all" those that are enabled.
    [[nodiscard]] QStringList EnabledButtons() const
    {
        QStringList names;
        for (const auto& [control, name] : {std::pair{"cmdRename", "rename"},
                                            {"cmdSave", "save"},
                                            {"cmdReplace", "replace"},
                                            {"cmdManager", "manager"},
                                            {"cmdSelectAll", "all"}}) {
            if (Enabled(control))
                names << QString::fromLatin1(name);
        }
        return names;
    }
};
