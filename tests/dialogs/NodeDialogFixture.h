#pragma once

#include "dialogs/NodeDialog.h"
#include "platform/controls/FlexGrid.h"
#include "tests/database/SaveFixture.h"

#include <memory>

/// A dialog of a node on an open database, driven by clicks and keys; see SaveFixture for the records. The
/// operator may edit, unless the test takes the right away. The page "FE Parameters" has its six rows.
class NodeDialogFixture : public SaveFixture
{
public:
    explicit NodeDialogFixture(const std::function<void()>& useOther = {});
    virtual ~NodeDialogFixture();
    NodeDialogFixture(const NodeDialogFixture&) = delete;
    NodeDialogFixture& operator=(const NodeDialogFixture&) = delete;

    std::unique_ptr<NodeDialog> Form;

    virtual void Make() = 0;
    /// Shows it and lets it be activated. Calls and boxes of its start stay recorded.
    void Show();

    // What is seen ----------------------------------------------------------------------------------------

    template <typename Widget>
    [[nodiscard]] Widget& Find(const char* name) const
    {
        auto* widget = Form->findChild<Widget*>(QString::fromLatin1(name));
        if (!widget)
            qFatal("no control %s", name);
        return *widget;
    }
    [[nodiscard]] FlexGrid& Parameters() const { return Find<FlexGrid>("grdNodeParam"); }
    [[nodiscard]] QString Cell(int row, int column = 1) const { return Parameters().TextMatrix(row, column); }
    /// The names or the values that the grid shows, without the blank rows at its end.
    [[nodiscard]] QStringList Column(int column) const;
    [[nodiscard]] QStringList Entries(const char* combo) const;
    [[nodiscard]] QString Chosen(const char* combo) const;
    [[nodiscard]] QStringList Pages() const;
    [[nodiscard]] QString Text(const char* label) const;
    [[nodiscard]] QString Name() const;
    [[nodiscard]] bool Enabled(const char* control) const { return Find<QWidget>(control).isEnabled(); }
    /// The editor that stands open over the grid; null when none does.
    [[nodiscard]] QWidget* Editor() const;

    // What the operator does ------------------------------------------------------------------------------

    void Click(const char* button) const;
    void TypeName(const QString& name) const;
    /// Chooses an entry by typing it, as an operator does who does not scroll.
    void Choose(const char* combo, const QString& text) const;
    void ClickPage(int row) const;
    void OpenEditor(int row) const;
    /// Opens the editor of a row and puts a value into it, which is not stored yet.
    void TypeValue(int row, const QString& value) const;
    void EnterValue(int row, const QString& value) const;

private:
    void ScriptFeParameters();
};
