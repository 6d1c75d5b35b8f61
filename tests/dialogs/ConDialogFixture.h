#pragma once

#include "database/DatabaseState.h"
#include "database/Gateway.h"
#include "dialogs/ConNameBox.h"
#include "dialogs/DefinitionListView.h"
#include "dialogs/DialogState.h"
#include "model/ModelState.h"
#include "platform/HelpHook.h"
#include "tests/database/SaveFixture.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <memory>

/// A connection dialog over the records of SaveFixture, with the types that the browser offers, an operator
/// with all rights, and pictures that can be told apart.
class ConDialogFixture : public SaveFixture
{
public:
    static constexpr int PictureCount = 17;

    explicit ConDialogFixture(const std::function<void()>& useOther = {}) : SaveFixture(useOther)
    {
        Database().EditRight = true;
        Database().ScanRight = true;
        Model().ConOrderObject = std::make_unique<ConOrderClass>();
        if (!Model().ConOrderObject->LoadConTypesInOrder(::Gateway(), QStringLiteral("0,1,2,9,14,6,7"),
                                                         QStringLiteral("0,1,2,9,16,6,7")))
            qFatal("The connection types cannot be read.");
        Dialogs() = DialogState();
        for (int index = 0; index < PictureCount; ++index)
            Dialogs().ConPictures[static_cast<std::size_t>(index)] = Picture(index);
        Help().ShowHelpTopic = [this](const QString& topic) { Topics << topic; };
        Forget();
    }
    ~ConDialogFixture()
    {
        Form.reset();
        Dialogs() = DialogState();
        Help() = HelpHook();
        Model().ConOrderObject.reset();
    }
    ConDialogFixture(const ConDialogFixture&) = delete;
    ConDialogFixture& operator=(const ConDialogFixture&) = delete;

    std::unique_ptr<QDialog> Form;
    /// Help topics that were shown.
    QStringList Topics;

    void ShowForm(std::unique_ptr<QDialog> form)
    {
        Form = std::move(form);
        Form->show();
        if (!QTest::qWaitForWindowActive(Form.get()))
            qFatal("The dialog does not become active.");
    }
    /// A stored connection of any target, beside those that are there.
    void AddStored(const QString& name, const QString& target)
    {
        Component.Store.AddConnection(name, target);
        ConTree.Add(1, QStringLiteral("C,%1").arg(IdOfConnection(name)), name);
    }

    // Controls ---------------------------------------------------------------------------------------------

    template <typename Control>
    [[nodiscard]] Control& Find(const char* name) const
    {
        auto* control = Form->findChild<Control*>(QString::fromLatin1(name));
        if (!control)
            qFatal("There is no %s.", name);
        return *control;
    }
    [[nodiscard]] ConNameBox& Name() const { return Find<ConNameBox>("txtConName"); }
    [[nodiscard]] QComboBox& Types() const { return Find<QComboBox>("cboConType"); }
    [[nodiscard]] DefinitionListView& List() const { return Find<DefinitionListView>("lvWPlist"); }
    [[nodiscard]] QPushButton& Button(const char* name) const { return Find<QPushButton>(name); }

    void Click(const char* button) const { QTest::mouseClick(&Button(button), Qt::LeftButton); }
    void ShowParameters() const
    {
        // The label side of a wide check box does not take clicks.
        QTest::mouseClick(&Find<QCheckBox>("chkShowParameters"), Qt::LeftButton, {}, QPoint(8, 8));
    }
    /// Picks a type from the list that is pulled down.
    void ChooseType(const QString& text) const
    {
        QComboBox& types = Types();
        types.setFocus();
        QTest::keyClick(&types, Qt::Key_F4);
        QAbstractItemView& view = *types.view();
        view.setCurrentIndex(types.model()->index(types.findText(text), 0));
        QTest::keyClick(&view, Qt::Key_Return);
    }
    void TypeName(const QString& name) const
    {
        Name().setFocus();
        Name().selectAll();
        QTest::keyClicks(&Name(), name);
    }
    /// Row from 1, in the middle of its first column.
    [[nodiscard]] QPoint RowCenter(int row) const
    {
        return List().visualItemRect(List().topLevelItem(row - 1)).center();
    }
    void ClickRow(int row) const { QTest::mouseClick(List().viewport(), Qt::LeftButton, {}, RowCenter(row)); }

    // What is seen
    // -------------------------------------------------------------------------------------------

    [[nodiscard]] QStringList TypeTexts() const
    {
        QStringList texts;
        for (int k = 0; k < Types().count(); ++k)
            texts << Types().itemText(k);
        return texts;
    }
    /// Rows of the list, their columns joined with "|".
    [[nodiscard]] QStringList Rows() const
    {
        QStringList rows;
        for (int row = 0; row < List().topLevelItemCount(); ++row) {
            QStringList cells;
            for (int column = 0; column < List().columnCount(); ++column)
                cells << List().topLevelItem(row)->text(column);
            rows << cells.join(u'|');
        }
        return rows;
    }
    /// Index of the picture that the dialog shows; -1 when it shows none.
    [[nodiscard]] int ShownPicture() const
    {
        const QPixmap pixmap = Find<QLabel>("imgConArray").pixmap();
        if (pixmap.isNull())
            return -1;
        return pixmap.toImage().pixelColor(pixmap.width() / 2, pixmap.height() / 2).red() / PictureStep;
    }
    /// Calls of the component without begins and commits, which are then forgotten.
    [[nodiscard]] QStringList TakeReads()
    {
        QStringList reads = Component.TakeCalls();
        reads.removeIf([](const QString& call) { return call.contains(u"Transaction"); });
        return reads;
    }

private:
    static constexpr int PictureStep = 10;

    static QIcon Picture(int index)
    {
        QPixmap pixmap(48, 48);
        pixmap.fill(QColor(index * PictureStep, 0, 0));
        return QIcon(pixmap);
    }
};
