#include "browser/DirectTarget.h"

#include <QHash>
#include <QTest>

namespace {

using Texts = QHash<QString, QString>;

QString Compose(int page, const Texts& texts)
{
    return ComposeNodeTarget(page,
                             [&](const char* field) { return texts.value(QString::fromLatin1(field)); });
}

Texts Typed(const char* pairs)
{
    Texts texts;
    for (const QString& pair : QString::fromLatin1(pairs).split(u';', Qt::SkipEmptyParts))
        texts.insert(pair.section(u'=', 0, 0), pair.section(u'=', 1));
    return texts;
}

} // namespace

class TestDirectTarget : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Compose_FieldsOfAPage_GiveItsWaypoints_data();
    void Compose_FieldsOfAPage_GiveItsWaypoints();
    void Compose_ChannelAlone_GetsAnId_data();
    void Compose_ChannelAlone_GetsAnId();
    void Compose_AnyText_GoesInAsTyped();
    void Compose_EachField_IsItsOwnParameter();
    void AddWp_Again_AddsNothing();
    void AddParam_EmptyAndOtherText_SetsACommaBetween();
};

void TestDirectTarget::Compose_FieldsOfAPage_GiveItsWaypoints_data()
{
    QTest::addColumn<int>("page");
    QTest::addColumn<QByteArray>("typed");
    QTest::addColumn<QString>("target");
    const auto row = [](const char* name, int page, const char* typed, const char* target) {
        QTest::newRow(name) << page << QByteArray(typed) << QString::fromLatin1(target);
    };
    row("nothing", 0, "", "");
    row("nothing, second page", 1, "", "");
    row("nothing, third page", 2, "", "");
    row("address", 0, "txtAddress=17", "WP=NET4,ADDR=17");
    row("order of the target", 0, "txtRetries=2;txtTimeOut=500;txtAddress=17",
        "WP=NET4,ADDR=17,TIME=500,RETRY=2");
    row("without an address", 0, "txtRetries=2", "WP=NET4,RETRY=2");
    row("both waypoints", 0, "txtAddress=17;txtFeId=3;txtFeChannel=4", "WP=NET4,ADDR=17,WP=FE,ID=3,CH=4");
    row("front end alone", 0, "txtFeId=3", "WP=FE,ID=3");
    row("MML", 1, "txtUserName=op;txtPassword=secret;txtPath=/ne/1;txtTimeMML=900;txtRetryMML=1",
        "WP=NEMML,USER=op,PSW=secret,PATH=/ne/1,TIME=900,RETRY=1");
    row("SNMP", 2, "txtHost=h1;txtPort=161;txtCommunity=public;txtSection=2;txtStation=5",
        "WP=SNMPNODE,HOST=h1,PORT=161,COMMUNITY=public,SECTION=2,STATION=5");
    row("other page's fields", 1, "txtAddress=17;txtHost=h1;txtPath=/ne/1", "WP=NEMML,PATH=/ne/1");
    row("no such page", 3, "txtAddress=17", "");
    row("blanks", 0, "txtAddress=  ;txtTimeOut= ", "");
}
void TestDirectTarget::Compose_FieldsOfAPage_GiveItsWaypoints()
{
    QFETCH(const int, page);
    QFETCH(const QByteArray, typed);
    QFETCH(const QString, target);
    QCOMPARE(Compose(page, Typed(typed)), target);
}

void TestDirectTarget::Compose_ChannelAlone_GetsAnId_data()
{
    QTest::addColumn<QByteArray>("typed");
    QTest::addColumn<QString>("target");
    QTest::newRow("channel") << QByteArray("txtFeChannel=4") << QStringLiteral("WP=FE,ID=0,CH=4");
    QTest::newRow("blank id") << QByteArray("txtFeId= ;txtFeChannel=4") << QStringLiteral("WP=FE,ID=0,CH=4");
    QTest::newRow("blank channel") << QByteArray("txtFeId=3;txtFeChannel= ") << QStringLiteral("WP=FE,ID=3");
    QTest::newRow("behind an address")
        << QByteArray("txtAddress=1;txtFeChannel=4") << QStringLiteral("WP=NET4,ADDR=1,WP=FE,ID=0,CH=4");
}
void TestDirectTarget::Compose_ChannelAlone_GetsAnId()
{
    QFETCH(const QByteArray, typed);
    QFETCH(const QString, target);
    QCOMPARE(Compose(0, Typed(typed)), target);
}

void TestDirectTarget::Compose_AnyText_GoesInAsTyped()
{
    QCOMPARE(Compose(1, {{QStringLiteral("txtPath"), QStringLiteral(" a,b=c ")}}),
             QStringLiteral("WP=NEMML,PATH= a,b=c "));
    const QString tab = QStringLiteral("\t");
    QCOMPARE(Compose(1, {{QStringLiteral("txtPath"), tab}}), QStringLiteral("WP=NEMML,PATH=") + tab);
}

void TestDirectTarget::Compose_EachField_IsItsOwnParameter()
{
    QCOMPARE(DirectFields().size(), std::size_t(15));
    for (const DirectField& field : DirectFields()) {
        const bool isChannel = qstrcmp(field.name, "txtFeChannel") == 0;
        QCOMPARE(Compose(field.page, {{QString::fromLatin1(field.name), QStringLiteral("1")}}),
                 QStringLiteral("WP=%1,%2%3=1")
                     .arg(QLatin1String(field.waypoint), isChannel ? QStringLiteral("ID=0,") : QString(),
                          QLatin1String(field.parameter)));
    }
}

void TestDirectTarget::AddWp_Again_AddsNothing()
{
    QString text = QStringLiteral("WP=BUST4");
    bool done = false;
    AddWpToTarget(text, QStringLiteral("NET4"), done);
    QVERIFY(done);
    AddWpToTarget(text, QStringLiteral("NET4"), done);
    QCOMPARE(text, QStringLiteral("WP=BUST4,WP=NET4"));
}

void TestDirectTarget::AddParam_EmptyAndOtherText_SetsACommaBetween()
{
    QString text;
    AddParamToTarget(text, QStringLiteral("A"), QStringLiteral("1"));
    QCOMPARE(text, QStringLiteral("A=1"));
    AddParamToTarget(text, QStringLiteral("B"), QString());
    QCOMPARE(text, QStringLiteral("A=1,B="));
}

QTEST_APPLESS_MAIN(TestDirectTarget)
#include "TestDirectTarget.moc"
