#include "app/TextBoxFocus.h"

#include "app/Theme.h"

#include <QEvent>
#include <QFocusEvent>
#include <QLineEdit>
#include <QTimer>

namespace {

using TextBoxFocus::Colors;

void color(QLineEdit& box, const QColor& background) {
    QPalette palette = box.palette();
    palette.setColor(QPalette::Base, background);
    // The box is white or blue in a dark palette too, so its text is always dark.
    palette.setColor(QPalette::Text, Qt::black);
    palette.setColor(QPalette::Highlight, QColor(0, 62, 92));
    box.setPalette(palette);
}

void gained(QWidget* control, Colors colors) {
    auto* box = qobject_cast<QLineEdit*>(control);
    if (!box)
        return;
    // Selected from the end, so that the caret stands at the start.
    const auto length = static_cast<int>(box->text().size());
    box->setSelection(length, -length);
    if (colors == Colors::BlueAndWhite)
        color(*box, Theme::Accent);
}

void lost(QWidget* control, Colors colors) {
    auto* box = qobject_cast<QLineEdit*>(control);
    if (!box)
        return;
    if (box->text().contains(u'\''))
        box->setText(box->text().remove(u'\''));
    if (colors == Colors::BlueAndWhite)
        color(*box, Qt::white);
}

class Watcher : public QObject {
public:
    Watcher(QWidget& box, Colors colors)
        : QObject(&box)
        , m_colors(colors) {
        box.installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        const bool enters = event->type() == QEvent::FocusIn;
        if (!enters && event->type() != QEvent::FocusOut)
            return false;
        const auto reason = static_cast<QFocusEvent*>(event)->reason();
        // No more than that: a box loses the focus in its own end, too.
        auto* box = static_cast<QWidget*>(watched);
        if (reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason) {
            // The entry goes on. One that has not begun must not end up beside what stands there.
            if (enters && !static_cast<QLineEdit*>(watched)->isModified())
                gained(box, m_colors);
            return false;
        }
        (enters ? gained : lost)(box, m_colors);
        // The click that brought the focus would drop the selection again.
        if (enters && reason == Qt::MouseFocusReason)
            QTimer::singleShot(0, box, [this, box] { gained(box, m_colors); });
        return false;
    }

private:
    Colors m_colors;
};

} // namespace

void TextBoxFocus::Gained(QWidget* control) {
    gained(control, Colors::BlueAndWhite);
}

void TextBoxFocus::Lost(QWidget* control) {
    lost(control, Colors::BlueAndWhite);
}

void TextBoxFocus::Attach(QWidget* textBox, Colors colors) {
    auto* box = qobject_cast<QLineEdit*>(textBox);
    if (!box)
        return;
    if (colors == Colors::BlueAndWhite)
        color(*box, Qt::white);
    new Watcher(*box, colors);
}
