#pragma once

#include "app/modCommon.h"
#include "display/Render.h"
#include "display/frmSummary.h"
#include "support/AppFolder.h"
#include "support/Operator.h"

#include <QLabel>
#include <QPointer>

/// Rows at the given positions; those at a negative position played the joker.
inline SummaryList RowsAt(const QList<int>& positions) {
    SummaryList list;
    for (const int position : positions)
        list.Add(std::make_shared<Summary>(
            Summary{"Team", 100 - std::abs(position), position < 0, std::abs(position)}));
    return list;
}

/// A board of a size of its own choice, or as large as its screen, under the settings that an INI
/// file holds.
struct TestBoard : AppFolder {
    explicit TestBoard(QSize size = {}, const QByteArray& settings = {}) {
        WriteFile(Path("JOKER.BMP"), ReadFile(":/JOKER.BMP"));
        WriteFile(IniPath(), "[Application]\n" + QByteArray(settings).replace(' ', '\n'));
        modCommon::Settings(modCommon::LoadSettings);
        if (size.isEmpty())
            return;
        Screen->resize(size);
        Screen->show();
    }
    ~TestBoard() { delete Screen; }

    bool Render(const SummaryList& list, qint32 revealFrom = 0) const {
        return ::Render(modCommon::AppSettings())
            .RenderResults(*Screen, list, "Music Results", revealFrom);
    }
    /// An element by the number in its name.
    QLabel& Element(int number) const {
        return *Screen->findChild<QLabel*>(QStringLiteral("lblLabel%1").arg(number));
    }
    /// Where the elements of the lines stand.
    QString Places() const {
        QStringList places;
        for (const QLabel* label : Screen->findChildren<QLabel*>())
            if (const QRect box = label->geometry(); label->objectName() != "lblHeading")
                places.append(
                    QString::asprintf("%d %d %d %d", box.x(), box.y(), box.width(), box.height()));
        return places.join(u'|');
    }

    QPointer<frmSummary> Screen = new frmSummary(nullptr); ///< deletes itself when closed
};
