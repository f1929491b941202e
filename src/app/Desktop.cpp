#include "app/Desktop.h"

#include "app/Messages.h"
#include "app/modCommon.h"
#include "core/Logging.h"
#include "core/Utilities.h"

#include <QAbstractButton>
#include <QAccessibleWidget>
#include <QApplication>
#include <QDesktopServices>
#include <QUrl>

namespace {

QPointer<QWidget>& errorBoxOwner() {
    static QPointer<QWidget> owner;
    return owner;
}

/// A picture button is called by its tool-tip; the toolkit would say that again as its description.
class SpokenOnce : public QAccessibleWidget {
public:
    explicit SpokenOnce(QAbstractButton& button)
        : QAccessibleWidget(&button, QAccessible::Button)
        , m_button(button) {}

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Description ? QString() : QAccessibleWidget::text(kind);
    }
    QStringList actionNames() const override {
        return QStringList(pressAction()) + QAccessibleWidget::actionNames();
    }
    void doAction(const QString& name) override {
        if (name == pressAction())
            m_button.click();
        else
            QAccessibleWidget::doAction(name);
    }

private:
    QAbstractButton& m_button;
};

// What a screen reader is told otherwise than by the toolkit, to which a plain window is a filler.
QAccessibleInterface* spoken(const QString& className, QObject* object) {
    auto* widget = qobject_cast<QWidget*>(object);
    if (widget && className.startsWith(u"frm") && widget->windowType() == Qt::Window)
        return new QAccessibleWidget(widget, QAccessible::Window);
    if (widget && widget->property(IsStatus).toBool())
        return new QAccessibleWidget(widget, QAccessible::StatusBar);
    auto* button = qobject_cast<QAbstractButton*>(object);
    return button && className == u"PictureButton" ? new SpokenOnce(*button) : nullptr;
}

} // namespace

ErrorBoxesOver::ErrorBoxesOver(QWidget& window)
    : m_before(std::exchange(errorBoxOwner(), &window)) {}

ErrorBoxesOver::~ErrorBoxesOver() {
    errorBoxOwner() = m_before;
}

void ShowErrorBox(const QString& text) {
    QWidget* owner = errorBoxOwner() ? errorBoxOwner().data() : QApplication::activeWindow();
    Messages::Inform(owner, text, QStringLiteral("Application Error"));
}

void ConnectDesktop() {
    QAccessible::installFactory(spoken);
    AppLog().ShowError = [](const QString& text) {
        if (modCommon::AppSettings().DebugMode == u"1")
            ShowErrorBox(text);
    };
    AppUtilities().OpenDocument = [](const QString& path) {
        return QDesktopServices::openUrl(QUrl::fromLocalFile(path));
    };
}
