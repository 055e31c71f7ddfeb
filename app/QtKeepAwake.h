#pragma once

#include "app/KeepAwake.h"

#include <QDBusConnection>
#include <QDBusUnixFileDescriptor>
#include <QObject>

namespace quorvane {

/// Asks the login service of Linux for a lock against sleep. Nobody waits for its answer; the lock is a file
/// descriptor, and lasts until that is closed.
class QtKeepAwake final : public QObject, public KeepAwake {
public:
    explicit QtKeepAwake(QDBusConnection bus = QDBusConnection::systemBus());
    void Hold() override;
    void Release() override;

private:
    QDBusConnection bus_;
    QDBusUnixFileDescriptor lock_;
    int asked_ = 0; ///< the newest request; answers to older ones are let go
    bool held_ = false;
};

} // namespace quorvane
