#pragma once

#include "core/RuntimeError.h"

#include <QList>
#include <QString>

/// While one lives, the failures that the guard catches wait; at its end they are reported in
/// their order. For a time in which no box may be open. There is one at a time.
class HeldReports {
public:
    HeldReports();
    ~HeldReports();
    Q_DISABLE_COPY(HeldReports)

    /// Keeps one report; false when none waits now.
    static bool Keep(const RuntimeError& error, const char* functionName, const char* objectName);

private:
    struct Report {
        RuntimeError Error;
        QString FunctionName;
        QString ObjectName;
    };
    QList<Report> m_reports;
    inline static HeldReports* s_current = nullptr;
};
