#pragma once

#include <QObject>
#include <Qt>

#include <functional>
#include <optional>

class QKeyEvent;
class QWidget;

/// Lets a screen see its keys before the focused control does. A screen may also keep every key
/// release from its controls; buttons and check boxes then answer to Space when it is pressed, so
/// that none stays down waiting for the release.
class KeyPreview : public QObject {
public:
    enum class Releases { Pass, Swallow };

    /// `onKey` gets the key code, Key_Return for either Enter, and answers true when the key goes
    /// no further.
    KeyPreview(QWidget* screen, Releases releases, std::function<bool(int key)> onKey);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool ownsFocus(const QWidget* widget) const;
    bool onPress(QWidget* focused, const QKeyEvent& event);

    QWidget* m_screen;
    Releases m_releases;
    std::function<bool(int key)> m_onKey;
    /// The last key that was announced to a list that had dropped down.
    std::optional<int> m_popupKey;
};
