#include "platform/ModuleFile.h"

#include <QCoreApplication>
#include <QTest>

/// The file that code was loaded from. What a library tells is tried with the installed one.
class TestModuleFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ModuleFile_LinkedIntoAProgram_IsTheProgram();
};

void TestModuleFile::ModuleFile_LinkedIntoAProgram_IsTheProgram()
{
    QCOMPARE(ModuleFile(), QCoreApplication::applicationFilePath());
}

QTEST_GUILESS_MAIN(TestModuleFile)
#include "TestModuleFile.moc"
