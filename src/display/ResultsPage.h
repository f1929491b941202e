#pragma once

#include <QList>
#include <QString>
#include <QStringList>

class QPagedPaintDevice;

/// The standings on paper: 80 columns of fixed pitch, as many pages as they need.
namespace ResultsPage {

/// One line of text, given as the columns that it is made of; each is padded to its width.
using Line = QStringList;

/// The whole text: the title, a heading, a rule, and a line for each row, of which the first three
/// texts are printed: position, team name and score.
QList<Line> Lines(const QString& title, const QList<QStringList>& rows);

/// Prints the text on a printer, as a document named after the title. Throws when there is no such
/// printer or it does not take the document.
void Print(const QString& printerName, const QString& title, const QList<QStringList>& rows);

/// Paints the lines on the device, which has a first page already: the first in the device's own
/// font, the others in "Courier New" of 11 points. Throws when the device fails.
void Paint(QPagedPaintDevice& device, const QList<Line>& lines);

} // namespace ResultsPage
