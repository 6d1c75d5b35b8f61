#include "browser/DialogOpening.h"

#include "dialogs/frmDatabaseConProp.h"
#include "dialogs/frmDatabaseNodeProp.h"
#include "dialogs/frmDirectProp.h"
#include "model/ModelState.h"
#include "platform/controls/ModalForm.h"
#include "scan/frmScan.h"

namespace {

template <typename Form>
void ShowForm(ConData& con, QWidget* parent)
{
    ShowModalForm<Form>(con, parent);
}

void ShowDirectProp(ConData& direct, QWidget* parent)
{
    if (Model().NewDirectObject)
        ShowModalForm<frmDirectProp>(direct, *Model().NewDirectObject, parent);
}

} // namespace

DialogOpening::DialogOpening()
    : ConnectionProperties(ShowForm<frmDatabaseConProp>),
      NodeProperties(ShowForm<frmDatabaseNodeProp>),
      DirectProperties(ShowDirectProp),
      Scan(ShowForm<frmScan>)
{}

DialogOpening& Opening()
{
    static DialogOpening opening;
    return opening;
}
