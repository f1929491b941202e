#include "core/HeldReports.h"

#include "core/Reporting.h"

HeldReports::HeldReports() {
    s_current = this;
}

HeldReports::~HeldReports() {
    s_current = nullptr;
    try {
        for (const Report& report : std::as_const(m_reports))
            ReportProgramError(report.Error.Number(), report.Error.Description(),
                               report.FunctionName, report.ObjectName);
    } catch (...) {
        // The report itself failed, and there is nobody left to tell.
    }
}

bool HeldReports::Keep(const RuntimeError& error, const char* functionName,
                       const char* objectName) {
    if (!s_current)
        return false;
    s_current->m_reports.append(
        {error, QString::fromLatin1(functionName), QString::fromLatin1(objectName)});
    return true;
}
