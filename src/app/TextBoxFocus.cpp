#include "app/TextBoxFocus.h"

#include "app/Theme.h"

#include <QEvent>
#include <QFocusEvent>
#include <QLineEdit>
#include <QTimer>

namespace {

using TextBoxFocus::Colours;

void colour(QLineEdit& box, const QColor& background) {
    QPalette palette = box.palette();
    palette.setColor(QPalette::Base, background);
    // The box is white or blue in a dark palette too, so its text is always dark.
    palette.setColor(QPalette::Text, Qt::black);
    palette.setColor(QPalette::Highlight, QColor(0, 62, 92));
    box.setPalette(palette);
}

void gained(QWidget* control, Colours colours) {
    auto* box = qobject_cast<QLineEdit*>(control);
    if (!box)
        return;
    // Selected from the end, so that the caret stands at the start.
    const auto length = static_cast<int>(box->text().size());
    box->setSelection(length, -length);
    if (colours == Colours::BlueAndWhite)
        colour(*box, Theme::Accent);
}

void lost(QWidget* control, Colours colours) {
    auto* box = qobject_cast<QLineEdit*>(control);
    if (!box)
        return;
    if (box->text().contains(u'\''))
        box->setText(box->text().remove(u'\''));
    if (colours == Colours::BlueAndWhite)
        colour(*box, Qt::white);
}

class Watcher : public QObject {
public:
    Watcher(QWidget& box, Colours colours)
        : QObject(&box)
        , m_colours(colours) {
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
                gained(box, m_colours);
            return false;
        }
        (enters ? gained : lost)(box, m_colours);
        // The click that brought the focus would drop the selection again.
        if (enters && reason == Qt::MouseFocusReason)
            QTimer::singleShot(0, box, [this, box] { gained(box, m_colours); });
        return false;
    }

private:
    Colours m_colours;
};

} // namespace

void TextBoxFocus::Gained(QWidget* control) {
    gained(control, Colours::BlueAndWhite);
}

void TextBoxFocus::Lost(QWidget* control) {
    lost(control, Colours::BlueAndWhite);
}

void TextBoxFocus::Attach(QWidget* textBox, Colours colours) {
    auto* box = qobject_cast<QLineEdit*>(textBox);
    if (!box)
        return;
    if (colours == Colours::BlueAndWhite)
        colour(*box, Qt::white);
    new Watcher(*box, colours);
}
