#include "scan/SaveOne.h"

#include "model/ConData.h"
#include "model/ModelState.h"
#include "model/TextHelpers.h"
#include "scan/DirectObjectKeeper.h"

bool SaveOneFound(const SaveOneRequest& request)
{
    const DirectObjectKeeper keeper(request.direct, Model().ScanDirectObject);
    ConData& direct = request.direct;
    // Without the type the dialog opens all the same.
    (void)TakeFoundNodeType(direct);
    direct.NodeName = request.node.identification;
    direct.NodeAddress = Trim(request.node.address);
    direct.Retry = Trim(request.retries);
    direct.Time = Trim(request.timeOut);
    return request.ShowDialog();
}
