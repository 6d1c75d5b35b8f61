#include "browser/DialogOpening.h"

#include "dialogs/frmDatabaseConProp.h"
#include "dialogs/frmDatabaseNodeProp.h"

#include <QPointer>

namespace {

/// The host may destroy the control, and the form with it, while it stands open.
template <typename Form>
void ShowForm(ConData& con, QWidget* parent)
{
    const QPointer<Form> form(new Form(con, parent));
    form->exec();
    delete form;
}

} // namespace

DialogOpening::DialogOpening()
    : ConnectionProperties(ShowForm<frmDatabaseConProp>), NodeProperties(ShowForm<frmDatabaseNodeProp>)
{}

DialogOpening& Opening()
{
    static DialogOpening opening;
    return opening;
}
