#include "app/QtKeepAwake.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <utility>

namespace quorvane {

QtKeepAwake::QtKeepAwake(QDBusConnection bus) : bus_(std::move(bus)) {}

void QtKeepAwake::Hold()
{
    if (std::exchange(held_, true) || !bus_.isConnected())
        return;
    QDBusMessage request =
        QDBusMessage::createMethodCall(u"org.freedesktop.login1"_qs, u"/org/freedesktop/login1"_qs,
                                       u"org.freedesktop.login1.Manager"_qs, u"Inhibit"_qs);
    request << u"sleep:idle"_qs << u"Quorvane Software"_qs << u"A measurement is going on"_qs << u"block"_qs;
    auto* const answer = new QDBusPendingCallWatcher(bus_.asyncCall(request), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer, number = ++asked_] {
        const QDBusPendingReply<QDBusUnixFileDescriptor> lock = *answer;
        if (held_ && number == asked_ && !lock.isError()) // or it came too late, and is let go
            lock_ = lock.value();
        answer->deleteLater();
    });
}

void QtKeepAwake::Release()
{
    held_ = false;
    lock_ = {};
}

} // namespace quorvane
