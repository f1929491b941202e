#include "core/Guard.h"

#include "core/HeldReports.h"
#include "core/Reporting.h"
#include "core/RuntimeError.h"

#include <new>

namespace {

RuntimeError currentError() {
    try {
        throw;
    } catch (const RuntimeError& error) {
        return error;
    } catch (const std::bad_alloc&) {
        return {ErrorNumber::OutOfMemory, QStringLiteral("Out of memory")};
    } catch (const std::exception& error) {
        return {ErrorNumber::InvalidCall, QString::fromUtf8(error.what())};
    } catch (...) {
        return {ErrorNumber::InvalidCall, QStringLiteral("Unknown error")};
    }
}

} // namespace

void ReportCurrentException(const char* functionName, const char* objectName) noexcept {
    try {
        const RuntimeError error = currentError();
        if (HeldReports::Keep(error, functionName, objectName))
            return;
        ReportProgramError(error.Number(), error.Description(), QString::fromLatin1(functionName),
                           QString::fromLatin1(objectName));
    } catch (...) {
        // The report itself failed, and there is nobody left to tell: the procedure still ends
        // with its default result.
    }
}
