#include <QByteArrayList>
#include <QRandomGenerator>

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

namespace {

const QByteArrayList Words =
    QByteArray("[Application]|[|]|=|\n|\r\n|\r|\"|'|;|#| |FontName|FontSize|Footer|BColorA|-1|1e9|"
               "99999999999|nan|\xEF\xBB\xBF|\xFF\xFE|\xC3")
        .split('|');

// A file that somebody has edited, with pieces put in and taken out.
QByteArray brokenFile(QRandomGenerator& random) {
    const auto upTo = [&](qsizetype most) { return static_cast<qsizetype>(random.bounded(most)); };
    QByteArray bytes = "; mine\r\n[Other]\r\na=b\r\n\r\n[APPLICATION]\r\n# big\r\nFontSize=32\r\n"
                       "fontname = \"DejaVu Sans\"\r\nFontName=second\r\nFooter=\r\n; end";
    for (qsizetype changes = upTo(8); changes >= 0; --changes) {
        const qsizetype at = upTo(bytes.size() + 1);
        const qsizetype length = upTo(40);
        const QByteArray pieces[] = {{},
                                     Words[upTo(Words.size())],
                                     bytes.mid(upTo(bytes.size() + 1), length),
                                     QByteArray(length * length, 'x'),
                                     QByteArray(1, static_cast<char>(random.generate()))};
        const QByteArray& piece = pieces[upTo(std::size(pieces))];
        bytes.replace(at, piece.isEmpty() ? length : 0, piece);
    }
    return bytes;
}

} // namespace

// Two hundred thousand files, the same ones in every run.
int main() {
    QRandomGenerator random(20260117);
    for (int i = 0; i < 200000; ++i) {
        const QByteArray bytes = brokenFile(random);
        LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(bytes.constData()),
                               static_cast<size_t>(bytes.size()));
    }
}
