#pragma once

#include <QMessageBox>
#include <QString>

class QWidget;

/// The program's message boxes: modal, texts shown as they stand.
namespace Messages {

/// An information icon and one OK button.
void Inform(QWidget* parent, const QString& text, const QString& title);

/// A question without an icon; the answer is the button pressed. Esc and the close box answer with
/// `refuse`, a No or a Cancel, which changes nothing. Enter presses `initial` when it is given.
QMessageBox::StandardButton Ask(QWidget* parent, const QString& text, const QString& title,
                                QMessageBox::StandardButton agree,
                                QMessageBox::StandardButton refuse,
                                QMessageBox::StandardButton initial = QMessageBox::NoButton);

} // namespace Messages
