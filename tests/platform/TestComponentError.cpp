#include "platform/ComponentError.h"

#include <QTest>

#include <stdexcept>

class TestComponentError : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Description_ComponentsError_IsWithNumber();
    void Description_OtherError_HasNumber0();
};

void TestComponentError::Description_ComponentsError_IsWithNumber()
{
    const ComponentError error(0x80040200, "Source", QStringLiteral("Größe"));

    QCOMPARE(DescriptionOf(error), QStringLiteral("Größe"));
    QCOMPARE(DescriptionWithNumber(error), QStringLiteral("Größe(80040200)"));
}

void TestComponentError::Description_OtherError_HasNumber0()
{
    const std::runtime_error error("broken");

    QCOMPARE(DescriptionOf(error), "broken");
    QCOMPARE(DescriptionWithNumber(error), "broken(0)");
}

QTEST_GUILESS_MAIN(TestComponentError)
#include "TestComponentError.moc"
