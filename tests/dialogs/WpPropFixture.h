#pragma once

#include "dialogs/DialogState.h"
#include "dialogs/GridEdit.h"
#include "dialogs/frmWpProp.h"
#include "model/ConData.h"
#include "model/ModelState.h"
#include "platform/HelpHook.h"
#include "platform/controls/FlexGrid.h"
#include "tests/support/GatewayFixture.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

/// The waypoint dialog over a connection by modem: 1 "Modem", 2 "T4 Bus", 3 "Options".
class WpPropFixture
{
public:
    /// Rows of the modem.
    enum ModemRows
    {
        Phone = 1,
        User,
        Password,
        TimeOut,
        Retry,
    };

    explicit WpPropFixture(const QString& type = QStringLiteral("T4 Bus over Modem"))
    {
        Data.Open();
        Model().TimeRetryNames = {QStringLiteral("TIME OUT"), QStringLiteral("RETRY COUNT")};
        Help().ShowHelpTopic = [this](const QString& topic) { Topics << topic; };
        Dialogs().SelectedWpIndex = 0;
        if (!Con.SetWpDataFromConType(type))
            qFatal("no tables");
        Con.SelectedWpIndx = 1;
        Data.Forget();
    }
    ~WpPropFixture()
    {
        Form.reset();
        Model().TimeRetryNames = {};
        Help() = HelpHook();
        Dialogs().SelectedWpIndex = 0;
    }
    WpPropFixture(const WpPropFixture&) = delete;
    WpPropFixture& operator=(const WpPropFixture&) = delete;

    GatewayFixture Data;
    ConData Con;
    QStringList Topics;
    std::unique_ptr<frmWpProp> Form;

    void SetValue(int waypoint, int row, const QString& value) { Con.SetWpDataItem(waypoint, row, 2, value); }
    [[nodiscard]] QString Value(int waypoint, int row) const
    {
        return Con.GetWpData(waypoint).GetWpParam(row, 2);
    }
    /// Values without which the modem is refused.
    void SetMandatory()
    {
        SetValue(1, Phone, QStringLiteral("123"));
        SetValue(1, Password, QStringLiteral("secret"));
    }

    void Show()
    {
        Form = std::make_unique<frmWpProp>(Con);
        Form->show();
        if (!QTest::qWaitForWindowActive(Form.get()))
            qFatal("the dialog does not become active");
        Data.Forget();
    }
    template <typename Control>
    [[nodiscard]] Control& Find(const char* name) const
    {
        auto* control = Form->findChild<Control*>(QString::fromLatin1(name));
        if (!control)
            qFatal("no control %s", name);
        return *control;
    }
    [[nodiscard]] FlexGrid& Grid() const { return Find<FlexGrid>("grdConParam"); }
    [[nodiscard]] QLineEdit& Text() const { return Find<QLineEdit>("txtGridEdit"); }
    [[nodiscard]] QComboBox& Combo() const { return Find<QComboBox>("cboGridEdit"); }
    void Press(const char* button) const { QTest::mouseClick(&Find<QPushButton>(button), Qt::LeftButton); }
    /// Types a value into a cell and leaves its editor open.
    void Type(int row, const QString& value) const
    {
        GridPlaceCell(row, 1);
        QTest::keyClicks(&Text(), value);
    }
    /// Opens a row and empties it.
    void Empty(int row) const
    {
        GridPlaceCell(row, 1);
        QTest::keyClick(&Text(), Qt::Key_Delete);
    }
};
