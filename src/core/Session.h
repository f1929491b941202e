#pragma once

#include <QString>

/// The running program and the person and machine behind it, as the log writes them into every
/// record. Texts that nothing fills are part of the record all the same.
struct Session {
    Session();
    /// Records the end of the session in the log (a quiet notice).
    ~Session();
    Q_DISABLE_COPY(Session)

    QString Version;    ///< major.minor.revision
    QString Executable; ///< without its folder and without Windows' ".exe"
    QString ProductName;
    QString PCUsername;
    QString SessionID; ///< 26 digits
    QString PageID;
    QString MachineName;
    QString Signature;
    QString Username;
    QString Password;
    QString ApplicationID;
    QString ConnectionName;
    QString CreatedDate; ///< dd/mmm/yyyy HH:MM:SS
    QString LastOpBy;
    QString LastOpInd;
    QString LastOpDateTime;
    bool IsSerial = false;
};

/// The one instance, made when the log first needs it.
Session& AppSession();
