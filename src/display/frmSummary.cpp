#include "display/frmSummary.h"

#include "core/Guard.h"
#include "core/Numbers.h"
#include "core/RuntimeError.h"
#include "display/BoardGeometry.h"
#include "display/BoardLabel.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QScreen>

#include <chrono>
#include <thread>

namespace {

QScreen* screenBeside(const QWidget* console) {
    QScreen* operators = console ? console->screen() : QGuiApplication::primaryScreen();
    for (QScreen* screen : QGuiApplication::screens())
        if (screen != operators)
            return screen;
    return operators;
}

} // namespace

frmSummary::frmSummary(const QWidget* console)
    : QWidget(nullptr, Qt::Window) {
    setObjectName(QStringLiteral("frmSummary"));
    setAttribute(Qt::WA_DeleteOnClose);
    setAutoFillBackground(true);
    setCursor(Qt::BlankCursor);
    QScreen* screen = screenBeside(console);
    setScreen(screen);
    setGeometry(screen->geometry());
    // The projector is unplugged: the board goes with it instead of covering the console.
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, [this](const QScreen* removed) {
        if (removed == this->screen())
            close();
    });
}

void frmSummary::ShowBoard() {
    // The operator's keys wait until the board is there.
    constexpr auto events = QEventLoop::ExcludeUserInputEvents;
    if (isVisible()) {
        QCoreApplication::processEvents(events);
        return;
    }
    showFullScreen();
    raise();
    activateWindow();
    // The window manager may take a moment to grant the full screen, and the screen may go away.
    constexpr int patience = 500;
    const QPointer<frmSummary> self(this);
    QElapsedTimer waited;
    waited.start();
    do {
        QCoreApplication::processEvents(events);
        if (!self || size() == screen()->size())
            break;
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    } while (waited.elapsed() < patience);
}

qint32 frmSummary::BoardWidth() const {
    return PixelsToTwips(width(), Dpi());
}

qint32 frmSummary::BoardHeight() const {
    return PixelsToTwips(height(), Dpi());
}

qint32 frmSummary::DisplayWidth() const {
    return PixelsToTwips(screen()->geometry().width(), Dpi());
}

void frmSummary::checkNew(const QString& name) const {
    if (m_byName.contains(name))
        throw RuntimeError(ErrorNumber::InvalidCall,
                           QStringLiteral("The board has a control %1 already").arg(name));
}

void frmSummary::add(QWidget& control, const QString& name) {
    control.setObjectName(name);
    m_controls.append(&control);
    m_byName.insert(name, &control);
}

BoardLabel& frmSummary::AddLabel(const QString& name) {
    checkNew(name);
    auto* label = new BoardLabel(this);
    add(*label, name);
    return *label;
}

QLabel& frmSummary::AddPicture(const QString& name) {
    checkNew(name);
    auto* picture = new QLabel(this);
    add(*picture, name);
    return *picture;
}

void frmSummary::KeepTextLeftOf(const QString& label, const QString& picture) {
    auto* text = qobject_cast<BoardLabel*>(m_byName.value(label));
    const QWidget* covering = m_byName.value(picture);
    if (text && covering)
        text->SetReserve(text->geometry().right() + 1 - covering->x());
}

bool frmSummary::SetLineVisible(qint32 position) {
    return Guarded("SetLineVisible", "frmSummary", false, [&] {
        for (qsizetype i = m_controls.size() - 1; i >= 0; --i) {
            QWidget* control = m_controls[i];
            if (!control->objectName().startsWith(QStringLiteral("lblLabel")))
                continue;
            const auto tag = ParseNumber(control->property(TagProperty).toString());
            if (tag && *tag == position)
                control->setVisible(true);
        }
        return true;
    });
}

void frmSummary::keyPressEvent(QKeyEvent* event) {
    const QString key = event->text();
    if (event->key() == Qt::Key_Escape)
        close();
    else if (key == u"1" || key == u"2" || key == u"3")
        SetLineVisible(key.toInt());
}
