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

    /// Gets the key code, both keys of Enter as Key_Return, and the whole event. True when the key
    /// goes no further.
    using OnKey = std::function<bool(int key, const QKeyEvent& event)>;

    KeyPreview(QWidget* screen, Releases releases, OnKey onKey);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool ownsFocus(const QWidget* widget) const;
    bool onPress(QWidget* focused, const QKeyEvent& event);

    QWidget* m_screen;
    Releases m_releases;
    OnKey m_onKey;
    /// The last key that was announced to a list that had dropped down.
    std::optional<int> m_popupKey;
};
