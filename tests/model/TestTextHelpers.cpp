#include "model/TextHelpers.h"
#include "platform/MachineSeams.h"

#include <QTest>

#include <limits>

class TestTextHelpers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { ResetMachine(); }

    void Trim_Texts_LosesBlanksOnly_data();
    void Trim_Texts_LosesBlanksOnly();
    void Val_Texts_GivesLeadingNumber_data();
    void Val_Texts_GivesLeadingNumber();
    void ValInt_Texts_RoundsAndHoldsRange_data();
    void ValInt_Texts_RoundsAndHoldsRange();
    void RoundHalfEven_Halves_GoToEven_data();
    void RoundHalfEven_Halves_GoToEven();
    void Str_Numbers_HaveLeadingBlankUnlessNegative();
    void TextContains_Texts_data();
    void TextContains_Texts();
    void ConTypeHasWord_Texts_data();
    void ConTypeHasWord_Texts();
    void PadText_Widths_data();
    void PadText_Widths();
    void DoubleAnyChar_Texts_ChangesTextAndEnds_data();
    void DoubleAnyChar_Texts_ChangesTextAndEnds();
    void ConvertWordsBeginningUpperCase_Texts_data();
    void ConvertWordsBeginningUpperCase_Texts();
    void RequirementDigit_Classes_data();
    void RequirementDigit_Classes();
    void ComboItem_Entries_data();
    void ComboItem_Entries();
    void FilterDigitKey_DigitOrBackspace_PassesSilently();
    void FilterDigitKey_OtherKey_BeepsAndGivesZero();
};

void TestTextHelpers::Trim_Texts_LosesBlanksOnly_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    QTest::newRow("both ends") << QStringLiteral("  a b ") << QStringLiteral("a b");
    QTest::newRow("blanks alone") << QStringLiteral("   ") << QString();
    QTest::newRow("empty") << QString() << QString();
    QTest::newRow("tab stays") << QStringLiteral(" \ta\n ") << QStringLiteral("\ta\n");
    QTest::newRow("hard blank stays") << QString(QChar(QChar::Nbsp)) << QString(QChar(QChar::Nbsp));
}

void TestTextHelpers::Trim_Texts_LosesBlanksOnly()
{
    QFETCH(QString, text);
    QFETCH(QString, expected);

    QCOMPARE(Trim(text), expected);
}

void TestTextHelpers::Val_Texts_GivesLeadingNumber_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("expected");
    QTest::newRow("digits") << QStringLiteral("254") << 254.0;
    QTest::newRow("leading blanks") << QStringLiteral("   12") << 12.0;
    QTest::newRow("trailing text") << QStringLiteral("1abc") << 1.0;
    QTest::newRow("negative") << QStringLiteral("-1\tUnknown") << -1.0;
    QTest::newRow("plus") << QStringLiteral("+5") << 5.0;
    QTest::newRow("decimal") << QStringLiteral("2.75x") << 2.75;
    QTest::newRow("second point ends") << QStringLiteral("1.2.3") << 1.2;
    QTest::newRow("point first") << QStringLiteral(".5") << 0.5;
    QTest::newRow("point last") << QStringLiteral("5.") << 5.0;
    QTest::newRow("sign alone") << QStringLiteral("-") << 0.0;
    QTest::newRow("point alone") << QStringLiteral(".") << 0.0;
    QTest::newRow("text") << QStringLiteral("abc1") << 0.0;
    QTest::newRow("empty") << QString() << 0.0;
    QTest::newRow("comma is no point") << QStringLiteral("1,5") << 1.0;
    QTest::newRow("other digits do not count") << QStringLiteral("\u0663") << 0.0;
}

void TestTextHelpers::Val_Texts_GivesLeadingNumber()
{
    QFETCH(QString, text);
    QFETCH(double, expected);

    QCOMPARE(Val(text), expected);
}

void TestTextHelpers::ValInt_Texts_RoundsAndHoldsRange_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("expected");
    QTest::newRow("whole") << QStringLiteral("32001") << 32001;
    QTest::newRow("half down to even") << QStringLiteral("2.5") << 2;
    QTest::newRow("half up to even") << QStringLiteral("3.5") << 4;
    QTest::newRow("largest") << QStringLiteral("2147483647") << std::numeric_limits<int>::max();
    QTest::newRow("too large") << QStringLiteral("99999999999999999999") << std::numeric_limits<int>::max();
    QTest::newRow("too small") << QStringLiteral("-99999999999") << std::numeric_limits<int>::min();
    QTest::newRow("no number") << QStringLiteral("x") << 0;
}

void TestTextHelpers::ValInt_Texts_RoundsAndHoldsRange()
{
    QFETCH(QString, text);
    QFETCH(int, expected);

    QCOMPARE(ValInt(text), expected);
}

void TestTextHelpers::RoundHalfEven_Halves_GoToEven_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("expected");
    QTest::newRow("0.5") << 0.5 << 0.0;
    QTest::newRow("1.5") << 1.5 << 2.0;
    QTest::newRow("2.5") << 2.5 << 2.0;
    QTest::newRow("-2.5") << -2.5 << -2.0;
    QTest::newRow("-3.5") << -3.5 << -4.0;
    QTest::newRow("2.51") << 2.51 << 3.0;
    QTest::newRow("whole") << 7.0 << 7.0;
}

void TestTextHelpers::RoundHalfEven_Halves_GoToEven()
{
    QFETCH(double, value);
    QFETCH(double, expected);

    QVERIFY(RoundHalfEven(value) == expected);
}

void TestTextHelpers::Str_Numbers_HaveLeadingBlankUnlessNegative()
{
    QCOMPARE(Str(0), QStringLiteral(" 0"));
    QCOMPARE(Str(12), QStringLiteral(" 12"));
    QCOMPARE(Str(-12), QStringLiteral("-12"));
}

void TestTextHelpers::TextContains_Texts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("searched");
    QTest::addColumn<bool>("expected");
    QTest::newRow("ignores case") << QStringLiteral("SNMPPRX") << QStringLiteral("snmp") << true;
    QTest::newRow("missing") << QStringLiteral("T4BUS") << QStringLiteral("SNMP") << false;
    QTest::newRow("blank at the end counts") << QStringLiteral("SNMP") << QStringLiteral("SNMP ") << false;
    QTest::newRow("empty searched") << QStringLiteral("a") << QString() << true;
    QTest::newRow("both empty") << QString() << QString() << true;
}

void TestTextHelpers::TextContains_Texts()
{
    QFETCH(QString, text);
    QFETCH(QString, searched);
    QFETCH(bool, expected);

    QCOMPARE(TextContains(text, searched), expected);
}

void TestTextHelpers::ConTypeHasWord_Texts_data()
{
    QTest::addColumn<QString>("typeName");
    QTest::addColumn<QString>("word");
    QTest::addColumn<bool>("expected");
    QTest::newRow("ignores case") << QStringLiteral("SNMPPRX") << QStringLiteral("snmp") << true;
    QTest::newRow("trims both") << QStringLiteral(" SNMP ") << QStringLiteral(" SNMP  ") << true;
    QTest::newRow("missing") << QStringLiteral("KD7") << QStringLiteral("SNMP") << false;
}

void TestTextHelpers::ConTypeHasWord_Texts()
{
    QFETCH(QString, typeName);
    QFETCH(QString, word);
    QFETCH(bool, expected);

    QCOMPARE(ConTypeHasWord(typeName, word), expected);
}

void TestTextHelpers::PadText_Widths_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("width");
    QTest::addColumn<bool>("atEnd");
    QTest::addColumn<QString>("expected");
    QTest::newRow("at end") << QStringLiteral("ab") << 4 << true << QStringLiteral("ab  ");
    QTest::newRow("in front") << QStringLiteral("ab") << 4 << false << QStringLiteral("  ab");
    QTest::newRow("exact") << QStringLiteral("abcd") << 4 << true << QStringLiteral("abcd");
    QTest::newRow("cut at end") << QStringLiteral("abcdef") << 4 << true << QStringLiteral("abcd");
    QTest::newRow("cut keeps the first") << QStringLiteral("abcdef") << 4 << false << QStringLiteral("abcd");
    QTest::newRow("no width") << QStringLiteral("ab") << 0 << true << QString();
}

void TestTextHelpers::PadText_Widths()
{
    QFETCH(QString, text);
    QFETCH(int, width);
    QFETCH(bool, atEnd);
    QFETCH(QString, expected);

    QCOMPARE(PadText(text, width, atEnd), expected);
}

void TestTextHelpers::DoubleAnyChar_Texts_ChangesTextAndEnds_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("character");
    QTest::addColumn<QString>("expected");
    QTest::newRow("one hit") << QStringLiteral("A & B") << QStringLiteral("&") << QStringLiteral("A && B");
    QTest::newRow("several hits") << QStringLiteral("&a&b") << QStringLiteral("&")
                                  << QStringLiteral("&&a&&b");
    QTest::newRow("neighbours") << QStringLiteral("a&&b") << QStringLiteral("&") << QStringLiteral("a&&&&b");
    QTest::newRow("hit at the end") << QStringLiteral("a&") << QStringLiteral("&") << QStringLiteral("a&&");
    QTest::newRow("first character counts")
        << QStringLiteral("a&b") << QStringLiteral("&x") << QStringLiteral("a&&b");
    QTest::newRow("no hit") << QStringLiteral("ab") << QStringLiteral("&") << QStringLiteral("ab");
    QTest::newRow("empty text") << QString() << QStringLiteral("&") << QString();
    QTest::newRow("empty character") << QStringLiteral("ab") << QString() << QStringLiteral("ab");
}

void TestTextHelpers::DoubleAnyChar_Texts_ChangesTextAndEnds()
{
    QFETCH(QString, text);
    QFETCH(QString, character);
    QFETCH(QString, expected);

    QCOMPARE(DoubleAnyChar(text, character), expected);
    QCOMPARE(text, expected);
}

void TestTextHelpers::ConvertWordsBeginningUpperCase_Texts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    QTest::newRow("two words") << QStringLiteral("TIME OUT") << QStringLiteral("Time Out");
    QTest::newRow("second separator") << QStringLiteral("a&b c") << QStringLiteral("A&B C");
    QTest::newRow("other characters") << QStringLiteral("X.25-LINK") << QStringLiteral("X.25-link");
    QTest::newRow("empty") << QString() << QString();
}

void TestTextHelpers::ConvertWordsBeginningUpperCase_Texts()
{
    QFETCH(QString, text);
    QFETCH(QString, expected);

    QCOMPARE(ConvertWordsBeginningUpperCase(text, " &"), expected);
}

void TestTextHelpers::RequirementDigit_Classes_data()
{
    QTest::addColumn<QString>("digit");
    QTest::addColumn<bool>("required");
    QTest::addColumn<bool>("exclusive");
    QTest::newRow("empty") << QString() << false << false;
    QTest::newRow("optional") << QStringLiteral("0") << false << false;
    QTest::newRow("mandatory") << QStringLiteral("1") << true << false;
    QTest::newRow("mandatory with blanks") << QStringLiteral(" 1 ") << true << false;
    QTest::newRow("group") << QStringLiteral("2") << true << true;
    QTest::newRow("higher group") << QStringLiteral("12") << true << true;
    QTest::newRow("trailing text") << QStringLiteral("1x") << true << false;
    QTest::newRow("no number") << QStringLiteral("x1") << false << false;
}

void TestTextHelpers::RequirementDigit_Classes()
{
    QFETCH(QString, digit);
    QFETCH(bool, required);
    QFETCH(bool, exclusive);

    QCOMPARE(IsRequiredParameter(digit), required);
    QCOMPARE(IsExclusiveParameter(digit), exclusive);
}

void TestTextHelpers::ComboItem_Entries_data()
{
    QTest::addColumn<QStringList>("entries");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("found");
    QTest::addColumn<int>("position");
    const QStringList entries{"", "T4 Bus", "t4 bus", "KD7"};
    QTest::newRow("exact") << entries << QStringLiteral("KD7") << true << 3;
    QTest::newRow("ignores case, first wins") << entries << QStringLiteral("T4 BUS") << true << 1;
    QTest::newRow("missing selects the first") << entries << QStringLiteral("VRL") << false << 0;
    QTest::newRow("blank entries are not selected")
        << QStringList{"a", "  "} << QStringLiteral("  ") << true << 0;
    QTest::newRow("empty list") << QStringList() << QStringLiteral("a") << false << -1;
}

void TestTextHelpers::ComboItem_Entries()
{
    QFETCH(QStringList, entries);
    QFETCH(QString, text);
    QFETCH(bool, found);
    QFETCH(int, position);

    QCOMPARE(FindComboItem(entries, text), found);
    QCOMPARE(SelectComboItem(entries, text), position);
}

void TestTextHelpers::FilterDigitKey_DigitOrBackspace_PassesSilently()
{
    int beeps = 0;
    Machine().Beep = [&] { ++beeps; };

    for (const int key : std::initializer_list<int>{'0', '5', '9', 8})
        QCOMPARE(FilterDigitKey(key), key);

    QCOMPARE(beeps, 0);
}

void TestTextHelpers::FilterDigitKey_OtherKey_BeepsAndGivesZero()
{
    int beeps = 0;
    Machine().Beep = [&] { ++beeps; };

    for (const int key : std::initializer_list<int>{'/', ':', 'a', ' ', 13})
        QCOMPARE(FilterDigitKey(key), 0);

    QCOMPARE(beeps, 5);
}

QTEST_GUILESS_MAIN(TestTextHelpers)
#include "TestTextHelpers.moc"
