#pragma once

#include "dialogs/frmDirectProp.h"
#include "tests/dialogs/ConDialogFixture.h"

/// The dialog of the Direct tab's connection.
class DirectPropFixture : public ConDialogFixture
{
public:
    using ConDialogFixture::ConDialogFixture;

    /// On a connection of the database.
    void Edit(const QString& name)
    {
        EditDirect(name);
        Show();
    }
    /// On one that was applied under a name and chosen then.
    void EditApplied(const QString& templateName, const QString& name)
    {
        AddDirect(templateName, name);
        Show();
    }
    void Show() { ShowForm(std::make_unique<frmDirectProp>(Direct(), NewDirect())); }

    /// "Apply Save", those of them that are enabled.
    [[nodiscard]] QString Offered() const
    {
        QStringList offered;
        for (const char* name : {"cmdApply", "cmdSave"}) {
            if (Button(name).isEnabled())
                offered << Button(name).accessibleName();
        }
        return offered.join(u' ');
    }
    /// What the connection of the Direct tab holds, apart from its target.
    [[nodiscard]] QStringList Held() const
    {
        QStringList held{Direct().ConName,
                         Direct().ConTypeName,
                         QString::number(Direct().ConTypeID),
                         QString::number(Direct().ConDbID),
                         QString::number(Direct().ConWpCount),
                         Direct().NewCon ? QStringLiteral("new") : QStringLiteral("not new"),
                         Direct().SelectPressed ? QStringLiteral("taken") : QStringLiteral("not taken")};
        for (int waypoint = 1; waypoint <= ConData::MaxWaypoints; ++waypoint) {
            held << Direct().GetConWpName(waypoint);
            const WpData& table = Direct().GetWpData(waypoint);
            for (int row = 1; row <= table.WpParamCount(); ++row)
                held << table.GetWpParam(row, 1) + u'=' + table.GetWpParam(row, 2);
        }
        return held;
    }
};
