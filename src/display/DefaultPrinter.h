#pragma once

#include <QString>
#include <QStringList>

/// The printers of the system, and which of them is the user's default. One implementation for
/// each system.
namespace DefaultPrinter {

struct Printers {
    QStringList Names;   ///< in the system's order
    QString DefaultName; ///< empty when there is none
};

/// What the system knows; empty when its printing service does not answer.
Printers List();

/// Makes the printer the user's default, for this program and every other, now and later. Gives
/// the printer to print to from now on: this one, or the default as it was when the system has no
/// entry for this one. Throws, and changes nothing, when the printer cannot be had.
QString Choose(const QString& name);

/// Throws when the system refused the document that this program printed last.
void RequireDocumentTaken();

} // namespace DefaultPrinter
