#include "display/ScreenAwake.h"

#include <qt_windows.h>

struct ScreenAwake::Request {
    Request() { SetThreadExecutionState(ES_CONTINUOUS | ES_DISPLAY_REQUIRED | ES_SYSTEM_REQUIRED); }
    ~Request() { SetThreadExecutionState(ES_CONTINUOUS); }
};

ScreenAwake::ScreenAwake()
    : m_request(std::make_unique<Request>()) {}

ScreenAwake::~ScreenAwake() = default;
