#pragma once

#include <QString>
#include <QtGlobal>

#include <functional>

/// The application log: the one way in which the program reports failures. A message is kept as
/// the last one, appended to "ISApplication.Log" when its type is at or below `DebugLevel`; an
/// error is also offered to whoever can show it.
class Logging {
public:
    enum Destination : qint32 { FixedWidth = 1, CommaSeparated = 2 };

    Logging();

    /// Folder of the log file, ending in the platform's separator.
    const QString& LogPath() const { return m_logPath; }
    /// Trims blanks and appends the separator when it is missing.
    void SetLogPath(const QString& path);

    // The last message that was not of a quiet type.
    qint32 MessageType() const { return m_messageType; }
    qint32 MessageNumber() const { return m_messageNumber; }
    const QString& Description() const { return m_description; }
    const QString& FunctionName() const { return m_functionName; }
    const QString& ObjectName() const { return m_objectName; }

    /// Layout of the file: 1 fixed-width, 2 comma-separated.
    qint32 LogDestination = FixedWidth;
    /// The highest message type that is written. It starts at 0, so that an ordinary quiz
    /// leaves no file behind.
    qint32 DebugLevel = 0;
    /// Is given the text of every program error, written or not; the desktop sets it.
    std::function<void(const QString& text)> ShowError;

    /// Reports that the procedure `functionName` of the component `objectName` failed. True when
    /// a record was written.
    bool ProgramError(qint32 number, const QString& description, const QString& functionName,
                      const QString& objectName);
    /// Records one message. True when it was written.
    bool Record(qint32 messageType, qint32 messageNumber, const QString& description,
                const QString& functionName, const QString& objectName);

private:
    struct Message;
    bool write(const Message& message) noexcept;

    QString m_logPath;
    qint32 m_messageType = 0;
    qint32 m_messageNumber = 0;
    QString m_description;
    QString m_functionName;
    QString m_objectName;
    bool m_logFileExists = false;
};

/// The one instance, made on first use and alive until the process ends.
Logging& AppLog();
