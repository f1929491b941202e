#include "app/Messages.h"

namespace {

QMessageBox::StandardButton show(QWidget* parent, QMessageBox::Icon icon, const QString& text,
                                 const QString& title, QMessageBox::StandardButtons buttons,
                                 QMessageBox::StandardButton initial) {
    QMessageBox box(icon, title, text, buttons, parent);
    // A team may be called "<b>Bold</b>".
    box.setTextFormat(Qt::PlainText);
    box.setWindowModality(Qt::ApplicationModal);
    box.setDefaultButton(initial);
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

} // namespace

void Messages::Inform(QWidget* parent, const QString& text, const QString& title) {
    show(parent, QMessageBox::Information, text, title, QMessageBox::Ok, QMessageBox::Ok);
}

QMessageBox::StandardButton Messages::Ask(QWidget* parent, const QString& text,
                                          const QString& title, QMessageBox::StandardButton agree,
                                          QMessageBox::StandardButton refuse,
                                          QMessageBox::StandardButton initial) {
    return show(parent, QMessageBox::NoIcon, text, title, agree | refuse, initial);
}
