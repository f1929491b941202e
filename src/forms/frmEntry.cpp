#include "forms/frmEntry.h"

#include "app/Messages.h"
#include "app/TextBoxFocus.h"
#include "app/Theme.h"
#include "app/WindowTitle.h"
#include "core/Numbers.h"
#include "forms/KeyPreview.h"

#include <QCheckBox>
#include <QGridLayout>
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

} // namespace

frmEntry::frmEntry(QWidget* parent, const QString& team, qint32 score, bool joker)
    : QDialog(parent)
    , m_score(new QLineEdit(QString::number(score)))
    , m_joker(new QCheckBox(QStringLiteral("Joker"))) {
    setObjectName(QStringLiteral("frmEntry"));
    SetWindowTitle(*this, team);
    m_joker->setChecked(joker);
    build();
    new KeyPreview(this, KeyPreview::Releases::Swallow, [this](int key) { return onKey(key); });
}

void frmEntry::build() {
    QFont arial = font();
    arial.setFamily(QStringLiteral("Arial"));
    setFont(arial);

    auto* label = new QLabel(QStringLiteral("Score:"));
    label->setObjectName(QStringLiteral("lblScore"));
    label->setBuddy(m_score);
    m_score->setObjectName(QStringLiteral("txtScore"));
    m_score->setAccessibleName(QStringLiteral("Score"));
    QFont big = arial;
    big.setPointSize(4 * arial.pointSize());
    m_score->setFont(big);
    m_score->setAlignment(Qt::AlignRight);
    m_score->setMinimumWidth(QFontMetrics(big).horizontalAdvance(u'8') * 6);
    TextBoxFocus::Attach(m_score);
    m_joker->setObjectName(QStringLiteral("chkJoker"));
    auto* ok = button(QStringLiteral("cmdOK"), QStringLiteral("OK"));
    auto* cancel = button(QStringLiteral("cmdCancel"), QStringLiteral("Cancel"));

    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(3 * Theme::Unit, 3 * Theme::Unit, 3 * Theme::Unit, 3 * Theme::Unit);
    layout->setSpacing(2 * Theme::Unit);
    layout->addWidget(label, 0, 0);
    layout->addWidget(m_score, 0, 1, 1, 2);
    layout->addWidget(m_joker, 1, 1, 1, 2);
    layout->addWidget(ok, 2, 1);
    layout->addWidget(cancel, 2, 2);

    connect(ok, &QPushButton::clicked, this, &frmEntry::confirm);
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

bool frmEntry::onKey(int key) {
    if (key == Qt::Key_Return)
        confirm();
    else if (key == Qt::Key_Escape)
        reject();
    else
        return false;
    return true;
}

void frmEntry::confirm() {
    if (ParseNumber(m_score->text()))
        accept();
    else
        Messages::Inform(this, QStringLiteral("Score must be a numeric value"),
                         QStringLiteral("Rankelo Error"));
}
