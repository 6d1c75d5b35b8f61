#pragma once

#include "tests/browser/BrowserTestSupport.h"

#include <QComboBox>
#include <QTabWidget>

/// A control on the Direct page of a database with connections Alpha and Beta and Gamma, which is an SNMP
/// one.
class DirectFixture : public BrowserFixture
{
public:
    explicit DirectFixture(bool scan = true)
    {
        TinyDatabase& store = Component.Store;
        store.ScanRight = scan;
        store.AddConnection(QStringLiteral("Alpha"), QStringLiteral("WP=BUST4,ID=254,SPEED=9600"));
        store.AddConnection(QStringLiteral("Beta"),
                            QStringLiteral("WP=SOCKET,HOST=gw-2,PORT=4004,WP=BUST4,ID=7,SPEED=9600"));
        store.AddConnection(QStringLiteral("Gamma"), QStringLiteral("WP=SNMP,VERSION=2c"));
        Start();
        Forget();
    }

    static QString AlphaTarget() { return QStringLiteral("WP=BUST4,ID=254"); }
    static QString BetaTarget() { return QStringLiteral("WP=SOCKET,HOST=gw-2,WP=BUST4,ID=7"); }
    static QString ChangedText(const QString& connection)
    {
        return QStringLiteral("Connection ") + connection +
               QStringLiteral(" cannot be accessed, because another application has changed it. Automatic "
                              "update follows, try again.");
    }

    QComboBox& List() const { return Find<QComboBox>("cboDirectConName"); }
    QTabWidget& NodePages() const { return Find<QTabWidget>("tabNode"); }
    QLineEdit& Field(const char* name) const { return Find<QLineEdit>(name); }
    [[nodiscard]] QStringList Names() const
    {
        QStringList names;
        for (int row = 0; row < List().count(); ++row)
            names << List().itemText(row);
        return names;
    }
    [[nodiscard]] QString TypeText() const { return Field("txtDirectConType").text(); }
    [[nodiscard]] int DirectPicture() const
    {
        return Find<QLabel>("imgDirArray").property("picture").toInt();
    }
    /// The operator picks a row of the list.
    void Choose(const QString& name) const
    {
        const int row = List().findText(name);
        if (row < 0)
            qFatal("%s is not listed", qPrintable(name));
        List().setCurrentIndex(row);
        Q_EMIT List().activated(row);
    }
    void TurnTo(int page) const { Find<QTabWidget>("tabMain").setCurrentIndex(page); }
    /// Leaves the page and comes back.
    void VisitAgain() const
    {
        TurnTo(0);
        TurnTo(1);
    }
    /// A connection that the database does not hold, made from a stored one.
    void MakeNewConnection(const QString& name, const QString& from) const
    {
        ConData& made = *Model().NewDirectObject;
        if (!made.SetParentConData(from, true))
            qFatal("no connection %s", qPrintable(from));
        made.ConName = name;
    }
    void Forget()
    {
        Component.TakeCalls();
        Operator.Boxes.clear();
        Dialogs.clear();
    }
    [[nodiscard]] QStringList Told() const { return Operator.Texts(); }
    [[nodiscard]] bool IsQuiet() const { return Browser().Busy == 0 && Component.Store.Levels() == 0; }
};
