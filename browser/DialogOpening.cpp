#include "browser/DialogOpening.h"

#include "dialogs/frmDatabaseConProp.h"
#include "dialogs/frmDatabaseNodeProp.h"
#include "platform/controls/ModalForm.h"
#include "scan/frmScan.h"

namespace {

template <typename Form>
void ShowForm(ConData& con, QWidget* parent)
{
    ShowModalForm<Form>(con, parent);
}

} // namespace

DialogOpening::DialogOpening()
    : ConnectionProperties(ShowForm<frmDatabaseConProp>),
      NodeProperties(ShowForm<frmDatabaseNodeProp>),
      Scan(ShowForm<frmScan>)
{}

DialogOpening& Opening()
{
    static DialogOpening opening;
    return opening;
}
