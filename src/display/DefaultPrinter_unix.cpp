#include "display/DefaultPrinter.h"

#include "core/RuntimeError.h"

#include <cups/cups.h>

#include <memory>

namespace {

/// How long a printing service may keep the operator waiting for one answer.
constexpr int PatienceMilliseconds = 3000;
constexpr double PatienceSeconds = PatienceMilliseconds / 1000.0;

[[noreturn]] void failed(const QString& what) {
    throw RuntimeError(ErrorNumber::DeviceFault, what);
}

QString lastError() {
    return QString::fromUtf8(cupsLastErrorString());
}

/// A connection of our own: the library's shared one would wait for an answer without end.
class Service {
public:
    Service()
        : m_http(httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC, cupsEncryption(), 1,
                              PatienceMilliseconds, nullptr)) {
        if (!m_http)
            return;
        const auto giveUp = [](http_t*, void*) { return 0; };
        httpSetTimeout(m_http.get(), PatienceSeconds, giveUp, nullptr);
        m_count = cupsGetDests2(m_http.get(), &m_printers);
    }
    ~Service() { cupsFreeDests(m_count, m_printers); }
    Q_DISABLE_COPY(Service)

    bool IsThere() const { return m_http != nullptr; }
    int Count() const { return m_count; }
    cups_dest_t& Printer(int index) { return m_printers[index]; }

    void SetDefault(const cups_dest_t& printer) {
        cupsSetDefaultDest(printer.name, printer.instance, m_count, m_printers);
        if (cupsSetDests2(m_http.get(), m_count, m_printers) != 0)
            failed(QStringLiteral("The default printer cannot be changed: %1").arg(lastError()));
    }

private:
    struct Close {
        void operator()(http_t* http) const { httpClose(http); }
    };
    std::unique_ptr<http_t, Close> m_http;
    cups_dest_t* m_printers = nullptr;
    int m_count = 0;
};

/// A printer may have instances, the same machine with other options.
QString nameOf(const cups_dest_t& printer) {
    const QString name = QString::fromUtf8(printer.name);
    return printer.instance ? name + u'/' + QString::fromUtf8(printer.instance) : name;
}

QString option(const cups_dest_t& printer, const char* name) {
    return QString::fromUtf8(cupsGetOption(name, printer.num_options, printer.options));
}

// A printer that is paused takes a document all the same, which waits there.
void requireReady(const cups_dest_t& printer) {
    if (option(printer, "printer-is-accepting-jobs") == QLatin1String("false"))
        failed(QStringLiteral("%1: the printer accepts no documents").arg(nameOf(printer)));
}

} // namespace

DefaultPrinter::Printers DefaultPrinter::List() {
    Service service;
    Printers printers;
    for (int i = 0; i < service.Count(); ++i) {
        const cups_dest_t& printer = service.Printer(i);
        printers.Names.append(nameOf(printer));
        if (printer.is_default)
            printers.DefaultName = nameOf(printer);
    }
    return printers;
}

QString DefaultPrinter::Choose(const QString& name) {
    Service service;
    if (!service.IsThere())
        failed(QStringLiteral("The printing service does not answer: %1").arg(lastError()));
    // The default stays and gets the page when the chosen one has gone meanwhile.
    QString printerInstead;
    for (int i = 0; i < service.Count(); ++i) {
        const cups_dest_t& printer = service.Printer(i);
        if (printer.is_default)
            printerInstead = nameOf(printer);
        if (nameOf(printer) != name)
            continue;
        requireReady(printer);
        service.SetDefault(printer);
        return name;
    }
    if (printerInstead.isEmpty())
        failed(QStringLiteral("%1: no such printer").arg(name));
    return printerInstead;
}

void DefaultPrinter::RequireDocumentTaken() {
    if (cupsLastError() > IPP_STATUS_OK_CONFLICTING)
        failed(QStringLiteral("The document was not taken: %1").arg(lastError()));
}
