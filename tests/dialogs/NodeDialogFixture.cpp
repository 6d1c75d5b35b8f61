#include "tests/dialogs/NodeDialogFixture.h"

#include "database/DatabaseState.h"
#include "dialogs/DialogState.h"
#include "model/ModelState.h"
#include "platform/HelpHook.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

NodeDialogFixture::NodeDialogFixture(const std::function<void()>& useOther) : SaveFixture(useOther)
{
    Database().EditRight = true;
    Model().ConOrderObject = std::make_unique<ConOrderClass>();
    Model().ConOrderObject->LoadConTypesInOrder(*Model().Database, QStringLiteral("0,1,2,9,14,6,7"),
                                                QStringLiteral("0,1,2,9,16,6,7"));
    ScriptFeParameters();
    Forget();
}

NodeDialogFixture::~NodeDialogFixture()
{
    Form.reset();
    Model().ConOrderObject.reset();
    Dialogs() = DialogState();
    Help() = HelpHook();
}

void NodeDialogFixture::Show()
{
    if (!Form)
        Make();
    Form->show();
    QCoreApplication::processEvents();
}

// What is seen ----------------------------------------------------------------------------------------------

QStringList NodeDialogFixture::Column(int column) const
{
    QStringList texts;
    for (int row = 1; row < Parameters().GridRows(); ++row)
        texts << Cell(row, column);
    while (!texts.isEmpty() && texts.last().isEmpty())
        texts.removeLast();
    return texts;
}

QStringList NodeDialogFixture::Entries(const char* combo) const
{
    QStringList texts;
    for (int entry = 0; entry < Find<QComboBox>(combo).count(); ++entry)
        texts << Find<QComboBox>(combo).itemText(entry);
    return texts;
}

QString NodeDialogFixture::Chosen(const char* combo) const
{
    return Find<QComboBox>(combo).currentText();
}

QStringList NodeDialogFixture::Pages() const
{
    QStringList texts;
    for (int row = 0; row < Find<QListWidget>("lstWPlist").count(); ++row)
        texts << Find<QListWidget>("lstWPlist").item(row)->text();
    return texts;
}

QString NodeDialogFixture::Text(const char* label) const
{
    return Find<QLabel>(label).text();
}

QString NodeDialogFixture::Name() const
{
    return Find<QLineEdit>("txtNodeName").text();
}

QWidget* NodeDialogFixture::Editor() const
{
    for (const char* name : {"txtGridEdit", "cboGridEdit"}) {
        if (Find<QWidget>(name).isVisible())
            return &Find<QWidget>(name);
    }
    return nullptr;
}

// What the operator does ------------------------------------------------------------------------------------

void NodeDialogFixture::Click(const char* button) const
{
    QTest::mouseClick(&Find<QPushButton>(button), Qt::LeftButton);
}

void NodeDialogFixture::TypeName(const QString& name) const
{
    auto& box = Find<QLineEdit>("txtNodeName");
    box.setFocus();
    box.selectAll();
    QTest::keyClick(&box, Qt::Key_Delete);
    QTest::keyClicks(&box, name);
}

void NodeDialogFixture::Choose(const char* combo, const QString& text) const
{
    auto& box = Find<QComboBox>(combo);
    box.setFocus();
    // The first character starts a new search, whenever the one before ended.
    const int interval = QApplication::keyboardInputInterval();
    QApplication::setKeyboardInputInterval(0);
    QTest::qWait(2);
    for (const QChar character : text) {
        if (box.currentText() == text)
            break;
        QTest::keyClick(&box, character.toLatin1());
        QApplication::setKeyboardInputInterval(interval);
    }
    QApplication::setKeyboardInputInterval(interval);
    if (box.currentText() != text)
        qFatal("%s does not offer %s", combo, qPrintable(text));
}

void NodeDialogFixture::ClickPage(int row) const
{
    auto& list = Find<QListWidget>("lstWPlist");
    list.setFocus();
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(list.item(row)).center());
}

void NodeDialogFixture::OpenEditor(int row) const
{
    const QRect cell = Parameters().CellRect(row, 1);
    Parameters().setFocus();
    QTest::mouseClick(Parameters().viewport(), Qt::LeftButton, {}, cell.center());
    QTest::mouseDClick(Parameters().viewport(), Qt::LeftButton, {}, cell.center());
}

void NodeDialogFixture::TypeValue(int row, const QString& value) const
{
    OpenEditor(row);
    if (auto* combo = qobject_cast<QComboBox*>(Editor())) {
        combo->setCurrentText(value);
        if (combo->currentText() != value)
            qFatal("row %d does not offer %s", row, qPrintable(value));
        return;
    }
    auto* box = qobject_cast<QLineEdit*>(Editor());
    if (!box)
        qFatal("row %d opens no editor", row);
    box->selectAll();
    if (value.isEmpty())
        QTest::keyClick(box, Qt::Key_Delete);
    QTest::keyClicks(box, value);
}

void NodeDialogFixture::EnterValue(int row, const QString& value) const
{
    TypeValue(row, value);
    QTest::keyClick(Editor(), Qt::Key_Return);
}

void NodeDialogFixture::ScriptFeParameters()
{
    const auto list = [](const char* items) {
        return QStringList{QString::fromLatin1(items).replace(u',', TabChar)};
    };
    Component.Answer(QStringLiteral("GetWpParameters(FE,0)"),
                     list("ID,,CH,0,MODE,AUTO,WIN,2,ACK,100,PKT,18"));
    Component.Answer(QStringLiteral("GetWpParametersLongNames(FE,0)"),
                     list("FE ID,0|,FE CHANNEL,0|0,FE MODE,0|AUTO,WINDOW SIZE,0|2,ACK TIMER,0|100,"
                          "PACKET SIZE,0|18"));
    for (const char* keyword : {"MODE", "WIN", "ACK"})
        Component.Answer(QStringLiteral("TargetParamProperties(FE,%1)").arg(QLatin1String(keyword)),
                         {"0", "0", "1", ""});
    Component.Answer(QStringLiteral("TargetParamProperties(FE,PKT)"), {"0", "0", "4", "18"});
    Component.Answer(QStringLiteral("TargetParamDiscreteValues(FE,PKT)"),
                     QStringList{"9"} + list("18,32,64,128,256,512,768,1020,1032"));
}
