#include "components/hvxdb/MaintenanceLock.h"

#include "components/hvxdb/CamLock.h"
#include "components/hvxdb/SqlFailure.h"

#include <QTimer>
#include <QUuid>

namespace {

/// Gives the sign of life over a connection of its own; lives in the lock's thread.
class Heart : public QObject
{
public:
    Heart(const QString& source, const QString& token, int beatMs) : m_source(source), m_token(token)
    {
        m_timer.setInterval(beatMs);
        m_timer.setParent(this);
        connect(&m_timer, &QTimer::timeout, this, [this] { Beat(); });
    }

    void Start() { m_timer.start(); }

private:
    void Beat()
    {
        try {
            if (!m_session || m_session->HasLostSource()) {
                auto session = std::make_unique<SqlSession>();
                session->Connect(m_source);
                m_session = std::move(session);
            }
            CamLock(*m_session).Beat(m_token);
        } catch (const ComponentError&) {
            // The holder itself is writing, and who writes is seen to live; or the file is gone, and then
            // there is no lock to keep. The next beat tries again.
        }
    }

    QString m_source;
    QString m_token;
    QTimer m_timer;
    std::unique_ptr<SqlSession> m_session;
};

} // namespace

MaintenanceLock::MaintenanceLock(std::shared_ptr<HvxStore> store, int beatMs)
    : m_store(std::move(store)), m_token(QUuid::createUuid().toString(QUuid::WithoutBraces))
{
    CamLock(m_store->Session()).Take(m_token);
    m_store->SetOwnLock(m_token);
    auto* heart = new Heart(m_store->Source(), m_token, beatMs);
    heart->moveToThread(&m_thread);
    connect(&m_thread, &QThread::started, heart, [heart] { heart->Start(); });
    connect(&m_thread, &QThread::finished, heart, &QObject::deleteLater);
    m_thread.start();
}

MaintenanceLock::~MaintenanceLock()
{
    m_thread.quit();
    m_thread.wait();
    m_store->SetOwnLock(QString());
    try {
        CamLock(m_store->Session()).Release(m_token);
    } catch (const ComponentError&) {
        // The lock stays behind; it counts as left by the dead when this process is gone.
    }
}
