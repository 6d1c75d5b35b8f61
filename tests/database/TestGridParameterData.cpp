#include "tests/support/GatewayFixture.h"

#include <QTest>

/// Properties of one parameter for the grid.
class TestGridParameterData : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Free_NothingMoreIsAsked();
    void UnknownKind_NothingMoreIsAsked();
    void Text_GivesItsLength();
    void Number_GivesItsBoundsAsNumberTexts_data();
    void Number_GivesItsBoundsAsNumberTexts();
    void List_GivesItsValues();
    void List_Unusable_IsFalseWithoutValues_data();
    void List_Unusable_IsFalseWithoutValues();
    void CallFails_IsSilent_data();
    void CallFails_IsSilent();
    void UsedData_IsPresetAnew();
};

using GridParameter = DatabaseClass::GridParameter;

static const QStringList PropertiesCall{"TargetParamProperties(W,K)"};

/// An open session whose parameter K of waypoint W has these properties.
class ParameterFixture : public GatewayFixture
{
public:
    explicit ParameterFixture(int kind)
    {
        Open();
        Component.Answer("TargetParamProperties", {"2", "0", QString::number(kind), "default"});
    }

    bool Run() { return Gateway().GetGridParameterDataDb("W", "K", Data); }

    GridParameter Data;
};

void TestGridParameterData::Free_NothingMoreIsAsked()
{
    ParameterFixture fixture(1);

    QVERIFY(fixture.Run());

    QCOMPARE(fixture.Component.Calls, PropertiesCall);
    QCOMPARE(fixture.Data.required, 2);
    QCOMPARE(fixture.Data.kind, 1);
    QCOMPARE(fixture.Data.text, "default");
    QCOMPARE(fixture.Data.valueCount, 0);
    QCOMPARE(fixture.Pointers, QList<int>{});
}

void TestGridParameterData::UnknownKind_NothingMoreIsAsked()
{
    ParameterFixture fixture(9);

    QVERIFY(fixture.Run());

    QCOMPARE(fixture.Component.Calls, PropertiesCall);
    QCOMPARE(fixture.Data.kind, 9);
}

void TestGridParameterData::Text_GivesItsLength()
{
    ParameterFixture fixture(2);
    fixture.Component.Answer("TargetParamTextLength", {"64"});

    QVERIFY(fixture.Run());

    QCOMPARE(fixture.Component.Calls, PropertiesCall + QStringList{"TargetParamTextLength(W,K)"});
    QCOMPARE(fixture.Data.textLength, 64);
    QCOMPARE(fixture.Data.valueCount, 0);
}

void TestGridParameterData::Number_GivesItsBoundsAsNumberTexts_data()
{
    QTest::addColumn<QStringList>("bounds");
    QTest::addColumn<QStringList>("texts");
    QTest::newRow("from zero") << QStringList{"0", "4094"} << QStringList{" 0", " 4094"};
    QTest::newRow("negative") << QStringList{"-5", "-1"} << QStringList{"-5", "-1"};
    QTest::newRow("widest") << QStringList{"-2147483648", "2147483647"}
                            << QStringList{"-2147483648", " 2147483647"};
}

void TestGridParameterData::Number_GivesItsBoundsAsNumberTexts()
{
    QFETCH(QStringList, bounds);
    QFETCH(QStringList, texts);
    ParameterFixture fixture(3);
    fixture.Component.Answer("TargetParamValueBoundsLong", bounds);

    QVERIFY(fixture.Run());

    QCOMPARE(fixture.Component.Calls, PropertiesCall + QStringList{"TargetParamValueBoundsLong(W,K)"});
    QCOMPARE(fixture.Data.valueCount, 2);
    QCOMPARE(QStringList(fixture.Data.values.begin(), fixture.Data.values.end()), texts);
}

void TestGridParameterData::List_GivesItsValues()
{
    ParameterFixture fixture(4);
    fixture.Component.Answer("TargetParamDiscreteValues", {"3", "LOW\tNORMAL\tHIGH"});

    QVERIFY(fixture.Run());

    QCOMPARE(fixture.Component.Calls, PropertiesCall + QStringList{"TargetParamDiscreteValues(W,K)"});
    QCOMPARE(fixture.Data.valueCount, 3);
    QCOMPARE(fixture.Data.values, (std::vector<QString>{"LOW", "NORMAL", "HIGH"}));
}

void TestGridParameterData::List_Unusable_IsFalseWithoutValues_data()
{
    QTest::addColumn<QStringList>("answer");
    QTest::newRow("empty") << QStringList{"0", ""};
    QTest::newRow("empty, but counted") << QStringList{"3", ""};
    QTest::newRow("fewer than counted") << QStringList{"3", "LOW\tHIGH"};
    QTest::newRow("more than counted") << QStringList{"1", "LOW\tHIGH"};
    QTest::newRow("not counted") << QStringList{"0", "LOW\tHIGH"};
}

void TestGridParameterData::List_Unusable_IsFalseWithoutValues()
{
    QFETCH(QStringList, answer);
    ParameterFixture fixture(4);
    fixture.Component.Answer("TargetParamDiscreteValues", answer);

    QVERIFY(!fixture.Run());

    QCOMPARE(fixture.Data.valueCount, 0);
    QCOMPARE(fixture.Data.values.size(), 0u);
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
}

void TestGridParameterData::CallFails_IsSilent_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("method");
    QTest::newRow("properties") << 1 << "TargetParamProperties";
    QTest::newRow("length") << 2 << "TargetParamTextLength";
    QTest::newRow("bounds") << 3 << "TargetParamValueBoundsLong";
    QTest::newRow("values") << 4 << "TargetParamDiscreteValues";
}

void TestGridParameterData::CallFails_IsSilent()
{
    QFETCH(int, kind);
    QFETCH(QString, method);
    ParameterFixture fixture(kind);
    fixture.Component.Fail(method);

    QVERIFY(!fixture.Run());

    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
    QCOMPARE(fixture.Pointers, QList<int>{});
}

void TestGridParameterData::UsedData_IsPresetAnew()
{
    ParameterFixture fixture(1);
    fixture.Component.Fail("TargetParamProperties");
    fixture.Data = {0, 7, "old", 4, 9, 2, {"old", "values"}};

    QVERIFY(!fixture.Run());

    QCOMPARE(fixture.Data.required, 1);
    QCOMPARE(fixture.Data.kind, 1);
    QCOMPARE(fixture.Data.valueCount, 0);
    QCOMPARE(fixture.Data.values.size(), 0u);
}

QTEST_GUILESS_MAIN(TestGridParameterData)
#include "TestGridParameterData.moc"
