#pragma once

#include "dialogs/frmDatabaseConProp.h"
#include "tests/dialogs/ConDialogFixture.h"

/// The dialog of a stored or a new connection.
class ConPropFixture : public ConDialogFixture
{
public:
    using ConDialogFixture::ConDialogFixture;

    /// The dialog as the commands show it: on a stored connection, on a copy of one, on a connection from
    /// nothing. What it asked the database while it opened is in Component.Calls.
    void Edit(const QString& name)
    {
        EditConnection(name);
        Show();
    }
    void AddCopyOf(const QString& name)
    {
        EditConnection(name);
        MakeNew();
        Show();
    }
    void AddFromNothing()
    {
        PrepareFromNothing();
        Show();
    }
    void PrepareFromNothing()
    {
        EditConnection(QStringLiteral("Alpha"));
        if (!Con().SetConDataToUnknownCon())
            qFatal("There is no unknown connection.");
        MakeNew();
        Forget();
    }
    void Show() { ShowForm(std::make_unique<frmDatabaseConProp>(Con())); }

private:
    void MakeNew() const
    {
        Con().ConName = QStringLiteral("New Connection");
        Con().NewCon = true;
        Con().SaveFromScan = false;
    }
};
