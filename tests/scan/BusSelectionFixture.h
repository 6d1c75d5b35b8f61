#pragma once

#include "scan/frmBusSelection.h"
#include "tests/scan/ScanFixture.h"

#include <QListWidget>

/// The bus dialog alone, on a scripted far end that answers with Reply. Its timer does not tick by itself.
class BusSelectionFixture : public ScanFixture
{
public:
    BusSelectionFixture()
    {
        Network.OnSend = [this](const QString&, const QString&) { return Reply; };
    }
    ~BusSelectionFixture() { Selection.reset(); }
    BusSelectionFixture(const BusSelectionFixture&) = delete;
    BusSelectionFixture& operator=(const BusSelectionFixture&) = delete;

    QString Reply = QStringLiteral("m:11,1,3\r12\r17\r254");
    std::unique_ptr<frmBusSelection> Selection;

    void ShowSelection(const QString& connection = QStringLiteral("Alpha"))
    {
        Load(connection);
        Selection = std::make_unique<frmBusSelection>(Direct());
        BusTimer().SetEnabled(false);
        Selection->show();
        if (!QTest::qWaitForWindowActive(Selection.get()))
            qFatal("The dialog does not become active.");
        Forget();
    }
    /// What the timer does when its time has come.
    void Discover() const { Q_EMIT BusTimer().Timer(); }

    [[nodiscard]] IntervalTimer& BusTimer() const { return *Selection->findChild<IntervalTimer*>("Timer1"); }
    [[nodiscard]] QListWidget& List() const { return *Selection->findChild<QListWidget*>("lstBusses"); }
    [[nodiscard]] QPushButton& SelectionButton(const char* name) const
    {
        return *Selection->findChild<QPushButton*>(QString::fromLatin1(name));
    }
    void ClickSelection(const char* name) const { QTest::mouseClick(&SelectionButton(name), Qt::LeftButton); }
    [[nodiscard]] QStringList Lines() const
    {
        QStringList lines;
        for (int row = 0; row < List().count(); ++row)
            lines << List().item(row)->text();
        return lines;
    }
};
