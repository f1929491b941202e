#include "display/ScreenAwake.h"

#include "core/ProductInfo.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingReply>

namespace {

QDBusPendingCall call(const QString& method, const QVariantList& arguments) {
    const QString service = QStringLiteral("org.freedesktop.ScreenSaver");
    QDBusMessage message = QDBusMessage::createMethodCall(
        service, QStringLiteral("/org/freedesktop/ScreenSaver"), service, method);
    message.setArguments(arguments);
    return QDBusConnection::sessionBus().asyncCall(message);
}

} // namespace

struct ScreenAwake::Request {
    QDBusPendingCall inhibit =
        call(QStringLiteral("Inhibit"),
             {QString::fromLatin1(ProductInfo::Name), QStringLiteral("The board is shown")});
};

ScreenAwake::ScreenAwake()
    : m_request(std::make_unique<Request>()) {}

// The answer, which names the request, may still be on its way. A program that ends first takes its
// requests with it.
ScreenAwake::~ScreenAwake() {
    // Without memory for it the program ends, as anywhere.
    // NOLINTNEXTLINE(bugprone-unhandled-exception-at-new)
    auto* answer = new QDBusPendingCallWatcher(m_request->inhibit, qApp);
    QObject::connect(answer, &QDBusPendingCallWatcher::finished, answer, [answer] {
        if (const QDBusPendingReply<uint> request = *answer; request.isValid())
            call(QStringLiteral("UnInhibit"), {request.value()});
        answer->deleteLater();
    });
}
