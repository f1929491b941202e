#pragma once

#include <QtGlobal>

#include <memory>

/// While one lives, the screen neither goes dark nor locks because nobody touches a key. It waits
/// for no answer of the system's; where the system has no such service, nothing happens. One
/// implementation for each system.
class ScreenAwake {
public:
    ScreenAwake();
    ~ScreenAwake();
    Q_DISABLE_COPY(ScreenAwake)

private:
    struct Request;
    std::unique_ptr<Request> m_request;
};
