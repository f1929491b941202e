#include "forms/frmEntry.h"

#include "app/ElidedLabel.h"
#include "app/InputGuard.h"
#include "app/Messages.h"
#include "app/TextBoxFocus.h"
#include "app/Theme.h"
#include "app/WindowTitle.h"
#include "core/Numbers.h"
#include "forms/KeyPreview.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {

QPushButton* button(const QString& name, const QString& caption) {
    auto* control = new QPushButton(caption);
    control->setObjectName(name);
    control->setAutoDefault(false);
    control->setMinimumHeight(5 * Theme::Unit);
    return control;
}

// As wide as the dialog, whatever its text.
QLabel* line(const char* name, const QString& text, const QFont& font) {
    auto* label = new ElidedLabel(text);
    label->setObjectName(QLatin1StringView(name));
    label->setFont(font);
    return label;
}

} // namespace

frmEntry::frmEntry(QWidget* parent, const ScoreEntry& entry)
    : QDialog(parent)
    , m_score(new QLineEdit(QString::number(entry.Score)))
    , m_joker(new QCheckBox(QStringLiteral("Joker"))) {
    setObjectName(QStringLiteral("frmEntry"));
    SetWindowTitle(*this, entry.Team);
    setProperty(HeldArrowsCountOnce, true); // else a held key would run down the whole list
    m_joker->setChecked(entry.Joker);
    build(entry);
    new KeyPreview(this, KeyPreview::Releases::Swallow,
                   [this](int key, const QKeyEvent& event) { return onKey(key, event); });
}

void frmEntry::build(const ScoreEntry& entry) {
    auto* label = new QLabel(QStringLiteral("Score:"));
    label->setObjectName(QStringLiteral("lblScore"));
    label->setBuddy(m_score);
    m_score->setObjectName(QStringLiteral("txtScore"));
    m_score->setAccessibleName(QStringLiteral("Score"));
    QFont big = font();
    big.setPointSize(4 * font().pointSize());
    m_score->setFont(big);
    m_score->setAlignment(Qt::AlignRight);
    m_score->setMinimumWidth(QFontMetrics(big).horizontalAdvance(u'8') * 6);
    TextBoxFocus::Attach(m_score);
    m_joker->setObjectName(QStringLiteral("chkJoker"));
    m_joker->setToolTip(QStringLiteral("Alt+J"));
    QFont large = font();
    large.setPointSizeF(1.8 * font().pointSizeF());
    auto* team = line("lblTeam", entry.Team, large);
    auto* round = line("lblRound", entry.Round, font());
    round->setForegroundRole(QPalette::PlaceholderText);
    auto* jokers =
        line("lblJokers",
             entry.JokerRounds.isEmpty() ? QString()
                                         : QStringLiteral("Joker played in: ") +
                                               entry.JokerRounds.join(QStringLiteral(", ")),
             font());
    jokers->setForegroundRole(QPalette::PlaceholderText);
    auto* ok = button(QStringLiteral("cmdOK"), QStringLiteral("OK"));
    auto* cancel = button(QStringLiteral("cmdCancel"), QStringLiteral("Cancel"));

    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(3 * Theme::Unit, 3 * Theme::Unit, 3 * Theme::Unit, 3 * Theme::Unit);
    layout->setSpacing(2 * Theme::Unit);
    layout->addWidget(team, 0, 0, 1, 3);
    layout->addWidget(round, 1, 0, 1, 3);
    layout->addWidget(label, 2, 0);
    layout->addWidget(m_score, 2, 1, 1, 2);
    layout->addWidget(m_joker, 3, 0);
    layout->addWidget(jokers, 3, 1, 1, 2);
    layout->addWidget(ok, 4, 1);
    layout->addWidget(cancel, 4, 2);

    connect(ok, &QPushButton::clicked, this, [this] { confirm(0); });
    connect(cancel, &QPushButton::clicked, this, &frmEntry::reject);
    m_score->setFocus();
}

qint32 frmEntry::Score() const {
    return ToInt32(QStringView(m_score->text()));
}

bool frmEntry::Joker() const {
    return m_joker->isChecked();
}

QString frmEntry::Answer() const {
    return result() == Accepted ? QStringLiteral("OK") : QStringLiteral("CANCEL");
}

bool frmEntry::onKey(int key, const QKeyEvent& event) {
    if (key == Qt::Key_Return)
        confirm(0);
    else if (key == Qt::Key_Down)
        confirm(1);
    else if (key == Qt::Key_Up)
        confirm(-1);
    else if (key == Qt::Key_J && event.modifiers() == Qt::AltModifier)
        m_joker->toggle();
    else
        return false;
    return true;
}

void frmEntry::confirm(int step) {
    if (ParseNumber(m_score->text())) {
        m_step = step;
        accept();
        return;
    }
    Messages::Inform(this, QStringLiteral("Score must be a numeric value"),
                     QStringLiteral("Rankelo Error"));
    m_score->setFocus();
    TextBoxFocus::Gained(m_score); // to be typed over
}
