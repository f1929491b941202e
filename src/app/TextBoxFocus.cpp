#include "app/TextBoxFocus.h"

#include "app/Theme.h"

#include <QEvent>
#include <QFocusEvent>
#include <QLineEdit>
#include <QTimer>

namespace {

void colour(QLineEdit& box, const QColor& background) {
    QPalette palette = box.palette();
    palette.setColor(QPalette::Base, background);
    // The box is white or blue in a dark palette too, so its text is always dark.
    palette.setColor(QPalette::Text, Qt::black);
    palette.setColor(QPalette::Highlight, QColor(0, 62, 92));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    box.setPalette(palette);
}

class Watcher : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override {
        // No more than that: a box loses the focus in its own end, too.
        auto* box = static_cast<QWidget*>(watched);
        if (event->type() == QEvent::FocusIn) {
            const auto reason = static_cast<QFocusEvent*>(event)->reason();
            if (staysInBox(reason))
                return false;
            TextBoxFocus::Gained(box);
            // The click that brought the focus would drop the selection again.
            if (reason == Qt::MouseFocusReason)
                QTimer::singleShot(0, box, [box] { TextBoxFocus::Gained(box); });
        } else if (event->type() == QEvent::FocusOut) {
            if (!staysInBox(static_cast<QFocusEvent*>(event)->reason()))
                TextBoxFocus::Lost(box);
        }
        return false;
    }

private:
    static bool staysInBox(Qt::FocusReason reason) {
        return reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason;
    }
};

} // namespace

void TextBoxFocus::Gained(QWidget* control) {
    auto* box = qobject_cast<QLineEdit*>(control);
    if (!box)
        return;
    // Selected from the end, so that the caret stands at the start.
    const auto length = static_cast<int>(box->text().size());
    box->setSelection(length, -length);
    colour(*box, Theme::Accent);
}

void TextBoxFocus::Lost(QWidget* control) {
    auto* box = qobject_cast<QLineEdit*>(control);
    if (!box)
        return;
    if (box->text().contains(u'\''))
        box->setText(box->text().remove(u'\''));
    colour(*box, Qt::white);
}

void TextBoxFocus::Attach(QWidget* textBox) {
    if (auto* box = qobject_cast<QLineEdit*>(textBox)) {
        colour(*box, Qt::white);
        box->installEventFilter(new Watcher(box));
    }
}
