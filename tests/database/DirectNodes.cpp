#include "tests/database/DirectNodes.h"

#include "database/DirectNodeSave.h"
#include "database/NodeTargetSaving.h"

namespace DirectNodes {

const QString Target = QStringLiteral("WP=NET4,ADDR=99,TIME=3000,RETRY=5,WP=OPT");
const QString NewConnectionTarget =
    QStringLiteral("WP=BUST4,ID=77,SPEED=9600,TIME=2000,RETRY=2,WP=OPT,PR=T4DT,DT=TEXT,VERIFY=YES");

void Choose(SaveFixture& fixture, const QString& conName)
{
    ConData& direct = fixture.Direct();
    if (!direct.SetParentConData(conName, true))
        qFatal("The connection cannot be read.");
    direct.NodeTypeName = QStringLiteral("NET4");
    direct.NodeAddress = QStringLiteral("99");
    direct.Time = QStringLiteral("3000");
    direct.Retry = QStringLiteral("5");
    direct.NodeDbID = 0;
    direct.NodeName.clear();
    fixture.TakeTrees();
    fixture.ForgetAll();
}

void Compose(SaveFixture& fixture, const QString& conName)
{
    Choose(fixture, QStringLiteral("Alpha"));
    fixture.Direct().SetWpDataItem(1, 1, 2, QStringLiteral("77"));
    fixture.Direct().ConName = conName;
    fixture.Direct().ConDbID = 0;
    fixture.NewDirect().Copy(fixture.Direct());
    fixture.NewDirect().NewCon = true;
}

void Load(SaveFixture& fixture)
{
    ConData& direct = fixture.Direct();
    if (!direct.SetWpDataFromNodeType(QStringLiteral("T4 Node")))
        qFatal("The class cannot be read.");
    PutNodeValues(direct);
    direct.NodeType = QStringLiteral("NET4");
    direct.CommandLine = QStringLiteral("1|-port 9");
    fixture.ForgetAll();
}

bool Save(SaveFixture& fixture, const QString& name)
{
    DirectNodeSaveRequest request{name, {}};
    return SaveDirectNode(fixture.Direct(), fixture.NewDirect(), request);
}

} // namespace DirectNodes
