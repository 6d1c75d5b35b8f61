#pragma once

#include "dialogs/GridEdit.h"
#include "model/ItemList.h"
#include "model/WpData.h"
#include "platform/controls/FlexGrid.h"
#include "platform/controls/UpDown.h"
#include "tests/support/GatewayFixture.h"

#include <QComboBox>
#include <QDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QToolButton>
#include <QVBoxLayout>

/// A window with a grid of one parameter of each kind, its editors, and controls beside them.
///
/// Rows: 1 number 0 to 255, 2 text of 8 characters, 3 list A B C with the default B, 4 free, 5 password,
/// 6 number 10 to 99. A seventh row holds no parameter.
class GridFixture
{
public:
    enum Rows
    {
        Number = 1,
        LimitedText,
        List,
        Free,
        Password,
        Narrow,
        Unused,
    };

    GridFixture()
    {
        Data.Open();
        Define(Number, "NUM", {"1", "0", "3", "5"}, {"0", "255"});
        Define(LimitedText, "TXT", {"0", "0", "2", ""}, {"8"});
        Define(List, "LST", {"0", "0", "4", "B"}, {"3", "A\tB\tC"});
        Define(Free, "ANY", {"0", "0", "1", ""}, {});
        Define(Password, "PSW", {"1", "0", "2", ""}, {"32"});
        Define(Narrow, "LOW", {"0", "0", "3", ""}, {"10", "99"});
        BuildWindow();
        GridAttach(*Grid, *Text, *Combo, *Spinner);
        GridEdit().GridWpName = QStringLiteral("WAYPOINT");
        GridEdit().GridWpData = &Table;
        GridEdit().GridLastRow = Narrow;
        GridEdit().GridPasswordRow = Password;
        GridEdit().GridPasswordValue = QStringLiteral("secret");
        Grid->SetTextMatrix(Password, 1, ParameterGrid::MaskedPassword());
        GridSetupRowHeight();
        Window.resize(360, 360);
        Window.show();
        if (!QTest::qWaitForWindowActive(&Window))
            qFatal("the window does not become active");
        Data.Forget();
    }
    ~GridFixture() { GridDetach(*Grid); }
    GridFixture(const GridFixture&) = delete;
    GridFixture& operator=(const GridFixture&) = delete;

    GatewayFixture Data;
    WpData Table;
    QDialog Window;
    FlexGrid* Grid = nullptr;
    QLineEdit* Text = nullptr;
    QComboBox* Combo = nullptr;
    UpDown* Spinner = nullptr;
    QLineEdit* Other = nullptr;
    QPushButton* Ok = nullptr;

    [[nodiscard]] QString Cell(int row) const { return Grid->TextMatrix(row, 1); }
    /// Puts a text into a value cell.
    void SetCell(int row, const QString& text) const { Grid->SetTextMatrix(row, 1, text); }
    /// Puts a text into a value cell and opens its editor.
    void Open(int row, const QString& text) const
    {
        SetCell(row, text);
        Open(row);
    }
    void Open(int row) const { GridPlaceCell(row, 1); }

    [[nodiscard]] bool NothingOpen() const
    {
        return Text->isHidden() && Combo->isHidden() && Spinner->isHidden();
    }
    [[nodiscard]] int Beeps() const { return static_cast<int>(Data.Computer.Steps.count(u"Beep"_qs)); }
    void ClickCell(int row, int column) const
    {
        QTest::mouseClick(Grid->viewport(), Qt::LeftButton, Qt::NoModifier,
                          Grid->CellRect(row, column).center());
    }
    void DoubleClickCell(int row, int column) const
    {
        ClickCell(row, column);
        QTest::mouseDClick(Grid->viewport(), Qt::LeftButton, Qt::NoModifier,
                           Grid->CellRect(row, column).center());
    }
    void ClickSpinner(int button) const
    {
        QTest::mouseClick(Spinner->findChildren<QToolButton*>().at(button), Qt::LeftButton);
    }

    /// What the database tells of a parameter, and a row for it.
    void Define(int row, const char* keyword, const QStringList& properties, const QStringList& limits)
    {
        const QString arguments = QStringLiteral("(WAYPOINT,%1)").arg(QLatin1String(keyword));
        const QStringList methods{u"TargetParamTextLength"_qs, u"TargetParamValueBoundsLong"_qs,
                                  u"TargetParamDiscreteValues"_qs};
        Data.Component.Answer(u"TargetParamProperties"_qs + arguments, properties);
        if (const int kind = properties[2].toInt(); kind >= 2)
            Data.Component.Answer(methods[kind - 2] + arguments, limits);
        Table.SetWpParamCount(qMax(Table.WpParamCount(), row));
        Table.SetWpParam(row, 1, QLatin1String(keyword));
    }

private:
    void BuildWindow()
    {
        auto* layout = new QVBoxLayout(&Window);
        Grid = new FlexGrid(&Window);
        Text = new QLineEdit(&Window);
        Combo = new QComboBox(&Window);
        Spinner = new UpDown(&Window);
        Other = new QLineEdit(&Window);
        Ok = new QPushButton(QStringLiteral("OK"), &Window);
        layout->addWidget(Grid, 1);
        layout->addWidget(Other);
        layout->addWidget(Ok);
        Grid->SetGridSize(Unused + 1, 2);
        Grid->horizontalHeader()->setSectionResizeMode(1, QHeaderView::Stretch);
    }
};
