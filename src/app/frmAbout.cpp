#include "app/frmAbout.h"

#include "app/Theme.h"
#include "core/ProductInfo.h"

#include <QApplication>
#include <QEventLoop>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QTimer>

namespace {

constexpr int SplashMilliseconds = 2000;
/// How long a screen that shows nothing may hold up the start.
constexpr int LongestWaitForPaint = 3000;

/// Keeps everything that a person does from every window, and tells when the splash is painted.
class SplashWatcher : public QObject {
public:
    SplashWatcher(QObject& splash, std::function<void()> painted)
        : m_splash(splash)
        , m_painted(std::move(painted)) {
        qApp->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        switch (event->type()) {
        case QEvent::Paint:
            if (watched == &m_splash && m_painted)
                std::exchange(m_painted, nullptr)();
            return false;
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::TouchBegin:
        case QEvent::ContextMenu:
        case QEvent::Close:
            event->ignore();
            return true;
        default:
            return false;
        }
    }

private:
    QObject& m_splash;
    std::function<void()> m_painted;
};

} // namespace

frmAbout::frmAbout(QWidget* parent)
    : QDialog(parent)
    , m_close(new QPushButton(QStringLiteral("Close"))) {
    setObjectName(QStringLiteral("frmAbout"));
    const QString product = QString::fromUtf8(ProductInfo::Name);
    setWindowTitle(product);

    constexpr int iconSide = 128;
    auto* icon = new QLabel(this);
    icon->setObjectName(QStringLiteral("imgIcon"));
    icon->setPixmap(
        QApplication::windowIcon().pixmap(QSize(iconSide, iconSide), devicePixelRatioF()));

    auto* rectangle = new QFrame(this);
    rectangle->setFixedHeight(Theme::Unit / 2);
    rectangle->setAutoFillBackground(true);
    rectangle->setPalette(Theme::Accent);

    auto* layout = new QGridLayout(this);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    constexpr int margin = 4 * Theme::Unit;
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->setHorizontalSpacing(margin);
    layout->setVerticalSpacing(Theme::Unit);
    constexpr int large = 28;
    constexpr int medium = 14;
    constexpr int small = 11;
    addLabel(*layout, "lblProductName", product, large);
    addLabel(*layout, "lblVersion", QString::fromUtf8(ProductInfo::Version), medium);
    layout->addWidget(rectangle, layout->rowCount(), 1);
    addLabel(*layout, "lblCopyRight", QString::fromUtf8(ProductInfo::Notice), small);
    addLabel(*layout, "lblURL", QString::fromUtf8(ProductInfo::Url), small);
    addLabel(*layout, "lblSupport", QString::fromUtf8(ProductInfo::Support), small);
    layout->addWidget(icon, 1, 0, layout->rowCount() - 1, 1, Qt::AlignTop);

    m_close->setObjectName(QStringLiteral("cmdClose"));
    m_close->setMinimumHeight(5 * Theme::Unit);
    connect(m_close, &QPushButton::clicked, this, &QDialog::reject);
    layout->setRowMinimumHeight(layout->rowCount(), Theme::Unit);
    layout->addWidget(m_close, layout->rowCount(), 1, Qt::AlignRight);
}

QLabel* frmAbout::addLabel(QGridLayout& layout, const char* name, const QString& text, int points) {
    auto* label = new QLabel(text, this);
    label->setObjectName(QLatin1StringView(name));
    label->setFont(QFont(QStringLiteral("Arial"), points));
    layout.addWidget(label, layout.rowCount(), 1);
    return label;
}

void frmAbout::RunAsSplash() {
    setWindowFlags(Qt::SplashScreen);
    m_close->hide();
    adjustSize();
    move(screen()->availableGeometry().center() - rect().center());

    QEventLoop wait;
    QTimer stay;
    stay.setSingleShot(true);
    stay.setTimerType(Qt::PreciseTimer);
    connect(&stay, &QTimer::timeout, &wait, &QEventLoop::quit);
    stay.start(LongestWaitForPaint);
    const SplashWatcher watcher(*this, [&] { stay.start(SplashMilliseconds); });
    show();
    wait.exec();
}
