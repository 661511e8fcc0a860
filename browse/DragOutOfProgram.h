#pragma once
#include <QObject>
#include <functional>
#include <memory>

class CComponent;
class QMouseEvent;

// Carries a drag of the program out of it. Once a control's press has become a drag
// (Watch, after each move the control reports), every move of the program passes here first,
// the ones the drag hands round included; the first move outside the program's windows ends
// the drag on the control itself (its last move and release, so no control the pointer
// passed over gets the offer) and calls Left, where the control starts the desktop's drag.
class DragOutOfProgram : public QObject
{
public:
    DragOutOfProgram(std::shared_ptr<CComponent> source, std::function<void()> left, QObject* parent);

    // Starts watching when the program's drag runs with the source pressed.
    void Watch();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool Dragging() const;
    void StopWatching();

    std::shared_ptr<CComponent> m_source;
    std::function<void()> m_left;
    bool m_watching = false;
};
