#include "browser/DialogOpening.h"

#include "dialogs/ModalForm.h"
#include "dialogs/frmDatabaseConProp.h"
#include "dialogs/frmDatabaseNodeProp.h"

namespace {

template <typename Form>
void ShowForm(ConData& con, QWidget* parent)
{
    ShowModalForm<Form>(con, parent);
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
