#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QTest>

namespace {

/// Folders whose texts an operator reads.
const QStringList& Folders()
{
    static const QStringList folders{"platform", "model",   "database", "dialogs",
                                     "scan",     "browser", "support",  "host"};
    return folders;
}

/// What the lines of the programs say, which scripts read, and how a catalogue's mistakes are told.
bool SpeaksToScripts(const QString& file)
{
    static const QStringList files{"host/workstation/ScriptedRun.cpp", "host/workstation/TalkLog.cpp",
                                   "host/node-manager/StartArguments.cpp", "platform/JsonText.cpp"};
    return files.contains(file);
}

/// The form editor, whose own windows stay English.
bool SpeaksToProgrammers(const QString& file)
{
    return file.startsWith(QStringLiteral("host/designer/"));
}

/// Names and data that look like words.
bool IsNoText(const QString& literal)
{
    static const QStringList names{"New Connection",
                                   "New Node",
                                   "HVX R",
                                   "FE Parameters",
                                   "TIME OUT",
                                   "RETRY COUNT",
                                   "BUS NUMBER",
                                   "Zelka Connection Browser",
                                   "Terminal Server",
                                   "Courier New",
                                   "This plugin does not support"};
    return names.contains(literal) || literal.startsWith(u'-') || literal.contains(u'{') ||
           literal.contains(u'<');
}

QString ContentsOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

} // namespace

/// The sources: no text that an operator reads goes past the catalogues.
class TestSourceTexts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Literals_LikeSentences_GoThroughTr();
    void Captions_SetInCode_GoThroughTr();

private:
    /// Expects no source to hold a match whose literal, the first group, is a text.
    static void ExpectNone(const QRegularExpression& pattern);
};

void TestSourceTexts::ExpectNone(const QRegularExpression& pattern)
{
    QVERIFY2(pattern.isValid(), qUtf8Printable(pattern.errorString()));
    const QDir root(QStringLiteral(ZELKA_SOURCES));
    int sources = 0;
    QStringList found;
    for (const QString& folder : Folders()) {
        QDirIterator files(root.filePath(folder), {"*.cpp", "*.h"}, QDir::Files,
                           QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QString path = files.next();
            const QString file = root.relativeFilePath(path);
            ++sources;
            if (SpeaksToScripts(file) || SpeaksToProgrammers(file))
                continue;
            const QString contents = ContentsOf(path);
            for (auto matches = pattern.globalMatch(contents); matches.hasNext();) {
                const QString literal = matches.next().captured(1);
                if (!IsNoText(literal))
                    found << file + QStringLiteral(": ") + literal;
            }
        }
    }
    for (const QString& each : std::as_const(found))
        qWarning("%s", qUtf8Printable(each));
    QVERIFY(found.isEmpty());
    QVERIFY(sources > 100);
}

void TestSourceTexts::Literals_LikeSentences_GoThroughTr()
{
    // Two words, or one with the mark that ends a sentence or goes on with a name.
    ExpectNone(QRegularExpression(QStringLiteral(
        R"re((?:QStringLiteral|QLatin1String|fromLatin1)\(\s*"()re"
        R"re((?:[^"\\\n]|\\.)*[A-Za-z]{2}(?:[^"\\\n]|\\.)* (?:[^"\\\n]|\\.)*[A-Za-z](?:[^"\\\n]|\\.)*)re"
        R"re(|(?:[^"\\\n]|\\.)*[A-Za-z]{2}(?:[.?!]|:? )| [A-Za-z](?:[^"\\\n]|\\.)*)")re")));
}

void TestSourceTexts::Captions_SetInCode_GoThroughTr()
{
    ExpectNone(QRegularExpression(QStringLiteral(
        R"re(\b(?:MsgBox|ErrorBox|InputBox|Refuse|TellLater|TellAndGiveUp|ShowLabel|showMessage|addAction|addMenu)re"
        R"re(|addItem|addTab|set\w*(?:Text|Title|ToolTip|StatusTip|AccessibleName|AccessibleDescription|Caption))\()re"
        R"re(\s*(?:QStringLiteral\(|QLatin1String\(|u)?\s*"((?:[^"\\\n]|\\.)*[A-Za-z]{2}(?:[^"\\\n]|\\.)*)")re")));
}

QTEST_GUILESS_MAIN(TestSourceTexts)
#include "TestSourceTexts.moc"
