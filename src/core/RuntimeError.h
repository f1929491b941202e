#pragma once

#include <QString>
#include <QtGlobal>

#include <stdexcept>

/// The numbers that Basic programs have given to their run-time errors for decades, so that people
/// who look after such programs know them. Database errors keep the engine's own code.
enum class ErrorNumber : qint32 {
    InvalidCall = 5,
    Overflow = 6,
    OutOfMemory = 7,
    SubscriptOutOfRange = 9,
    DivisionByZero = 11,
    TypeMismatch = 13,
    FileNotFound = 53,
    DeviceFault = 57,
    FileExists = 58,
    PermissionDenied = 70,
    PathNotFound = 76,
    NoObject = 91,
    InvalidUseOfNull = 94,
};

/// A failure inside a procedure: a 32-bit number and a description that a person can act on.
class RuntimeError : public std::runtime_error {
public:
    RuntimeError(qint32 number, const QString& description)
        : std::runtime_error(description.toStdString())
        , m_number(number)
        , m_description(description) {}
    RuntimeError(ErrorNumber number, const QString& description)
        : RuntimeError(static_cast<qint32>(number), description) {}

    qint32 Number() const { return m_number; }
    const QString& Description() const { return m_description; }

private:
    qint32 m_number;
    QString m_description;
};
