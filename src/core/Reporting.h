#pragma once

#include <QLoggingCategory>
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

/// "rankelo.errors": every reported error and every lost log record, for developers. Silent unless
/// QT_LOGGING_RULES="rankelo.errors=true" is in the environment.
Q_DECLARE_LOGGING_CATEGORY(RankeloErrors)
