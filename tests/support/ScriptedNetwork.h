#pragma once

#include "platform/ComponentError.h"
#include "platform/Components.h"

#include <QSet>
#include <QStringList>

#include <functional>
#include <memory>

/// The connection and utility components under the control of a test: records each call and answers by
/// procedures. Registered under all three identifiers as long as it lives.
class ScriptedNetwork
{
public:
    ScriptedNetwork()
    {
        for (const QString& id : {T4SyncConnId, HvxSyncConnId})
            RegisterSyncConnection(id, [this, id]() -> std::unique_ptr<SyncConnection> {
                Note(QStringLiteral("Create ") + id);
                if (NotCreated.contains(id))
                    return nullptr;
                return std::make_unique<Connection>(*this);
            });
        RegisterHvxUtility(HvxUtilityId, [this]() -> std::unique_ptr<HvxUtility> {
            Note(QStringLiteral("Create ") + HvxUtilityId);
            if (NotCreated.contains(HvxUtilityId))
                return nullptr;
            return std::make_unique<Utility>(*this);
        });
    }
    ~ScriptedNetwork()
    {
        RegisterSyncConnection(T4SyncConnId, nullptr);
        RegisterSyncConnection(HvxSyncConnId, nullptr);
        RegisterHvxUtility(HvxUtilityId, nullptr);
    }
    ScriptedNetwork(const ScriptedNetwork&) = delete;
    ScriptedNetwork& operator=(const ScriptedNetwork&) = delete;

    /// Answers of Open; without one 0.
    std::function<qint32(const QString& target)> OnOpen;
    /// Replies of Send; without one, and by raising, silence.
    std::function<QString(const QString& target, const QString& request)> OnSend;
    /// Runs within Close.
    std::function<void()> OnClose;
    /// Conversions of the utility by method name ("Hex2U", "U2A", "A2U", "GetBERData"); without one the input
    /// comes back as it is.
    std::function<QString(const QString& method, const QString& input)> OnConvert;
    /// Components that are not created.
    QSet<QString> NotCreated;
    /// What GetLastError gives; with LastErrorFails it raises.
    qint32 Major = 0;
    qint32 Minor = 0;
    QString Text;
    bool LastErrorFails = false;

    /// "Create Zelka.T4SyncConn.3", "Open WP=…", "Send target|request", "Close", "Hex2U text",
    /// "GetBERData 0 text", "GetLastError", "Gone connection", "Gone utility", in order.
    QStringList Calls;
    /// Components that live.
    int Connections = 0;
    int Utilities = 0;

    [[nodiscard]] QStringList TakeCalls() { return std::exchange(Calls, {}); }

    [[noreturn]] static void Raise(const QString& description = QStringLiteral("No answer"),
                                   quint32 number = 0x80040200)
    {
        throw ComponentError(number, QStringLiteral("Scripted"), description);
    }

private:
    void Note(const QString& call) { Calls << call; }

    class Connection : public SyncConnection
    {
    public:
        explicit Connection(ScriptedNetwork& network) : m_network(network) { ++m_network.Connections; }
        ~Connection() override
        {
            --m_network.Connections;
            m_network.Note(QStringLiteral("Gone connection"));
        }
        Connection(const Connection&) = delete;
        Connection& operator=(const Connection&) = delete;

        qint32 Open(const QString& target) override
        {
            m_network.Note(QStringLiteral("Open ") + target);
            return m_network.OnOpen ? m_network.OnOpen(target) : 0;
        }
        void Send(const QString& target, const QString& request, QString& reply) override
        {
            m_network.Note(QStringLiteral("Send ") + target + u'|' + request);
            if (!m_network.OnSend)
                Raise();
            reply = m_network.OnSend(target, request);
        }
        void Close() override
        {
            m_network.Note(QStringLiteral("Close"));
            if (m_network.OnClose)
                m_network.OnClose();
        }
        void GetLastError(qint32& major, qint32& minor, qint32& third, QString& text) override
        {
            m_network.Note(QStringLiteral("GetLastError"));
            if (m_network.LastErrorFails)
                Raise(QStringLiteral("No record"), 0x80040222);
            major = m_network.Major;
            minor = m_network.Minor;
            third = 0;
            text = m_network.Text;
        }

    private:
        ScriptedNetwork& m_network;
    };

    class Utility : public HvxUtility
    {
    public:
        explicit Utility(ScriptedNetwork& network) : m_network(network) { ++m_network.Utilities; }
        ~Utility() override
        {
            --m_network.Utilities;
            m_network.Note(QStringLiteral("Gone utility"));
        }
        Utility(const Utility&) = delete;
        Utility& operator=(const Utility&) = delete;

        void Hex2U(const QString& hex, QString& text) override
        {
            text = Convert(QStringLiteral("Hex2U"), QString(), hex);
        }
        void U2A(const QString& text, QString& bytes) override
        {
            bytes = Convert(QStringLiteral("U2A"), QString(), text);
        }
        void A2U(const QString& bytes, QString& text) override
        {
            text = Convert(QStringLiteral("A2U"), QString(), bytes);
        }
        void GetBERData(const QString& reply, qint16 element, QString& payload) override
        {
            payload = Convert(QStringLiteral("GetBERData"), QString::number(element) + u' ', reply);
        }

    private:
        QString Convert(const QString& method, const QString& argument, const QString& input)
        {
            m_network.Note(method + u' ' + argument + input);
            return m_network.OnConvert ? m_network.OnConvert(method, input) : input;
        }

        ScriptedNetwork& m_network;
    };
};
