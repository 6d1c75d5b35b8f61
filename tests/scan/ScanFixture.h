#pragma once

#include "tests/scan/ScanFormFixture.h"
#include "tests/support/ScriptedNetwork.h"

#include <QMap>

/// The scan dialog on a scripted network whose nodes are named by Nodes.
class ScanFixture : public ScanFormFixture
{
public:
    /// What a scan opens for the connection Alpha.
    static QString OpenTarget() { return AlphaTarget + QStringLiteral(",WP=OPT,VERIFY=NO"); }

    ScanFixture()
    {
        Network.OnSend = [this](const QString& target, const QString& request) {
            return AnswerOf(target, request);
        };
    }
    ~ScanFixture()
    {
        Form.reset();
        Scan() = ScanState();
    }
    ScanFixture(const ScanFixture&) = delete;
    ScanFixture& operator=(const ScanFixture&) = delete;

    ScriptedNetwork Network;
    /// Identifications of the nodes that answer, by address; their type is "T" and the address.
    QMap<int, QString> Nodes;

    /// Nothing of a scan is left.
    [[nodiscard]] bool IsReleased() const
    {
        return Network.Connections == 0 && Network.Utilities == 0 && !Scan().SyncConnObj &&
               !Scan().HVXUtilObject;
    }
    /// Addresses that were asked who they are, which are then forgotten.
    [[nodiscard]] QList<int> TakeAsked()
    {
        QList<int> asked;
        for (const QString& call : Network.TakeCalls()) {
            if (call.startsWith(u"Send ") && call.endsWith(u"|40"))
                asked << AddressOf(call);
        }
        return asked;
    }
    [[nodiscard]] static int AddressOf(const QString& target)
    {
        return target.section(QStringLiteral("ADDR="), 1).section(u',', 0, 0).toInt();
    }
    /// What a node answers; silence where there is none.
    [[nodiscard]] QString AnswerOf(const QString& target, const QString& request) const
    {
        const int address = AddressOf(target);
        if (!Nodes.contains(address))
            ScriptedNetwork::Raise();
        return request == u"40" ? Nodes[address] : QStringLiteral("T%1").arg(address);
    }
};
