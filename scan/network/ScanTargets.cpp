#include "scan/network/ScanTargets.h"

QString ScanTarget(const QString& connectionTarget)
{
    return connectionTarget + QStringLiteral(",WP=OPT,VERIFY=NO");
}

void AppendTimingParameters(QString& target, const QString& retries, const QString& timeOut)
{
    if (!retries.isEmpty())
        target += QStringLiteral(",RETRY=") + retries;
    if (!timeOut.isEmpty())
        target += QStringLiteral(",TIME=") + timeOut;
}

QString AddressTarget(int address, const QString& retries, const QString& timeOut)
{
    QString target = QStringLiteral("WP=NET4,ADDR=") + QString::number(address);
    AppendTimingParameters(target, retries, timeOut);
    return target + QStringLiteral(",wp=opt,pr=t4dl,dt=unihex");
}
