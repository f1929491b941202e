#include "display/frmSummary.h"

#include "app/WindowTitle.h"
#include "core/Guard.h"
#include "core/Numbers.h"
#include "core/RuntimeError.h"
#include "display/BoardGeometry.h"
#include "display/BoardLabel.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QScreen>
#include <QTimer>

namespace {

QScreen* screenBeside(const QWidget* console) {
    QScreen* operators = console ? console->screen() : QGuiApplication::primaryScreen();
    for (QScreen* screen : QGuiApplication::screens())
        if (screen != operators)
            return screen;
    return operators;
}

} // namespace

frmSummary::frmSummary(const QWidget* console, Use use)
    : QWidget(nullptr, Qt::Window)
    , m_use(use) {
    setObjectName(QStringLiteral("frmSummary"));
    setAttribute(Qt::WA_DeleteOnClose, use == Use::Audience);
    setAutoFillBackground(true);
    setCursor(Qt::BlankCursor);
    QScreen* screen = screenBeside(console);
    setScreen(screen);
    setGeometry(screen->geometry());
    // A desktop may leave the window as it is when the projector gets another resolution.
    connect(screen, &QScreen::geometryChanged, this, [this, screen](const QRect& geometry) {
        if (screen == this->screen())
            setGeometry(geometry);
    });
    // The projector is unplugged: the board goes with it instead of covering the console.
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, [this](const QScreen* removed) {
        if (removed == this->screen())
            close();
    });
}

void frmSummary::SetHeading(const QString& heading) {
    m_heading = heading;
    SetWindowTitle(*this, heading);
}

void frmSummary::Build(std::function<void()> build) {
    m_build = std::move(build);
    const QPointer<frmSummary> self(this);
    buildForThisSize();
    if (!self)
        return;
    // A box about an error of the build may have taken the keyboard.
    raise();
    activateWindow();
}

void frmSummary::buildForThisSize() {
    if (m_isBuilding) // It looks at the size again before it ends.
        return;
    m_isBuilding = true;
    const QPointer<frmSummary> self(this);
    constexpr int mostTimes = 3;
    for (int times = 0; times < mostTimes && size() != m_builtFor; ++times) {
        m_build();
        if (!self)
            return;
    }
    m_isBuilding = false;
    emit built();
}

// The window manager may grant the full screen late, or the projector wake up late.
void frmSummary::resizeEvent(QResizeEvent*) {
    if (m_build)
        QTimer::singleShot(0, this, [this] { buildForThisSize(); });
}

void frmSummary::ShowBoard() {
    if (m_use == Use::Picture)
        return;
    if (!isVisible()) {
        m_awake.emplace();
        showFullScreen();
    }
    // The operator's keys wait until the board is there.
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
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

void frmSummary::BeginPage() {
    delete m_newPage;
    m_newPage = new QWidget(this);
    m_newPage->hide();
    m_newPage->setGeometry(rect());
    m_builtFor = size();
    m_controls.clear();
    m_byName.clear();
}

void frmSummary::ShowPage() {
    for (const qint32 position : std::as_const(m_revealed))
        SetLineVisible(position);
    delete m_page;
    m_page = std::exchange(m_newPage, nullptr);
    m_page->show();
}

template <typename Control>
Control& frmSummary::add(const QString& name) {
    if (m_byName.contains(name))
        throw RuntimeError(ErrorNumber::InvalidCall,
                           QStringLiteral("The board has a control %1 already").arg(name));
    auto* control = new Control(m_newPage);
    control->setObjectName(name);
    m_controls.append(control);
    m_byName.insert(name, control);
    return *control;
}

BoardLabel& frmSummary::AddLabel(const QString& name) {
    return add<BoardLabel>(name);
}

QLabel& frmSummary::AddPicture(const QString& name) {
    return add<QLabel>(name);
}

void frmSummary::KeepTextLeftOf(const QString& label, const QString& picture) {
    if (auto* text = qobject_cast<BoardLabel*>(m_byName.value(label)))
        text->SetCover(m_byName.value(picture));
}

void frmSummary::SetLinesOutside(const Overflow& overflow) {
    m_overflow = overflow;
}

bool frmSummary::SetLineVisible(qint32 position) {
    return Guarded("SetLineVisible", "frmSummary", false, [&] {
        m_revealed.insert(position);
        for (qsizetype i = m_controls.size() - 1; i >= 0; --i) {
            QWidget* control = m_controls[i];
            if (!control->objectName().startsWith(QStringLiteral("lblLabel")))
                continue;
            const auto tag = ParseNumber(control->property(TagProperty).toString());
            if (tag && *tag == position) {
                control->setVisible(true);
                control->update(); // a name now ends before its joker
            }
        }
        return true;
    });
}

// As typed: with Alt or the Windows key held it is a command of the desktop's.
void frmSummary::Reveal(const QKeyEvent& key) {
    const QString text = key.text();
    const bool isTyped =
        !(key.modifiers() & (Qt::AltModifier | Qt::MetaModifier | Qt::ControlModifier));
    if (isTyped && (text == u"1" || text == u"2" || text == u"3"))
        SetLineVisible(text.toInt());
}

void frmSummary::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        close();
    else
        Reveal(*event);
}
