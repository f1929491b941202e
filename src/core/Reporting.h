#pragma once

#include <QString>
#include <QtGlobal>

// The two calls by which everything below the log reports to it. The log implements them, so that
// the guard, the utilities and the session need not know the log that in turn uses them.

/// Reports a failed procedure: `ProgramError` of the application log.
void ReportProgramError(qint32 number, const QString& description, const QString& functionName,
                        const QString& objectName);

/// Records one message of any type: `Record` of the application log.
void ReportRecord(qint32 messageType, qint32 messageNumber, const QString& description,
                  const QString& functionName, const QString& objectName);
