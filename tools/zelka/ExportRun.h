#pragma once

#include <QByteArray>
#include <QString>

#include <functional>

class HvxAdministration;

/// What an export wrote.
struct ExportReport
{
    qint64 connections = 0;
    qint64 nodes = 0;
};

/// Writes a database as the text that an import reads: connections, then nodes, each in the order of ids.
class ExportRun
{
public:
    /// Takes the next piece of the text.
    using TakeText = std::function<void(const QByteArray& text)>;

    ExportRun(HvxAdministration& database, TakeText takeText);

    /// `under`: only this connection and its nodes; empty: all. Raises CommandError (Refused) when there is
    /// no such connection, and when a node's connection came while the export was under way.
    ExportReport Run(const QString& under);

private:
    void GiveLargePiece();
    void GiveRest();

    HvxAdministration& m_database;
    TakeText m_takeText;
    QByteArray m_text;
};
