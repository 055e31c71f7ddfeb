#include "app/QtKeepAwake.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusServer>
#include <QDBusVirtualObject>
#include <QTest>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

namespace quorvane {
namespace {

/// The login service: gives locks away, and sees when they are let go.
class LoginService final : public QDBusVirtualObject {
public:
    QList<QDBusMessage> asked;
    QList<QDBusConnection> clients;

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& client) override
    {
        asked << message;
        clients << client;
        return true;
    }
    [[nodiscard]] QString introspect(const QString& /*path*/) const override { return {}; }

    /// Answers request `index` with a lock. @return the end of it that is closed with the lock
    int Give(int index)
    {
        int ends[2] = {};
        EXPECT_EQ(::pipe2(ends, O_NONBLOCK | O_CLOEXEC), 0);
        QDBusUnixFileDescriptor lock;
        lock.giveFileDescriptor(ends[1]);
        clients[index].send(asked[index].createReply(QVariant::fromValue(lock)));
        return ends[0];
    }
};

/// Whether the lock has been let go, in a while. Closes its end.
bool LetGo(int end)
{
    char byte = 0;
    const bool letGo = QTest::qWaitFor([&] { return ::read(end, &byte, 1) == 0; });
    ::close(end);
    return letGo;
}

TEST(QtKeepAwake, HoldsALockFromTheAnswerToTheRelease)
{
    LoginService service;
    QDBusServer server;
    QObject::connect(&server, &QDBusServer::newConnection, &server, [&](QDBusConnection client) {
        client.registerVirtualObject(QStringLiteral("/org/freedesktop/login1"), &service);
    });
    const QString name = QStringLiteral("keep awake");
    {
        QtKeepAwake awake(QDBusConnection::connectToPeer(server.address(), name));
        awake.Hold();
        awake.Hold();
        ASSERT_TRUE(QTest::qWaitFor([&] { return service.asked.size() == 1; }));
        EXPECT_EQ(service.asked[0].member(), QStringLiteral("Inhibit"));
        EXPECT_EQ(service.asked[0].arguments().first(), QStringLiteral("sleep:idle"));
        EXPECT_EQ(service.asked[0].arguments().last(), QStringLiteral("block"));

        awake.Release(); // before the service has answered
        EXPECT_TRUE(LetGo(service.Give(0)));

        awake.Hold();
        ASSERT_TRUE(QTest::qWaitFor([&] { return service.asked.size() == 2; }));
        const int lock = service.Give(1);
        // Messages come in their order: with this answer the one before it has been seen, too.
        QDBusMessage message = service.asked[1];
        QDBusPendingCallWatcher next(QDBusConnection(name).asyncCall(QDBusMessage::createMethodCall(
            message.service(), message.path(), message.interface(), QStringLiteral("Next"))));
        bool seen = false;
        QObject::connect(&next, &QDBusPendingCallWatcher::finished, &server, [&] { seen = true; });
        ASSERT_TRUE(QTest::qWaitFor([&] { return service.asked.size() == 3; }));
        service.clients[2].send(service.asked[2].createReply());
        ASSERT_TRUE(QTest::qWaitFor([&] { return seen; }));
        char byte = 0;
        EXPECT_EQ(::read(lock, &byte, 1), -1) << "still held";
        awake.Release();
        EXPECT_TRUE(LetGo(lock));

        awake.Hold(); // refused: nothing to hold, and nothing happens
        ASSERT_TRUE(QTest::qWaitFor([&] { return service.asked.size() == 4; }));
        service.clients[3].send(service.asked[3].createErrorReply(QDBusError::AccessDenied, {}));
    }
    QDBusConnection::disconnectFromPeer(name);
}

} // namespace
} // namespace quorvane
