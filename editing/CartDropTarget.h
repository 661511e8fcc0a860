#pragma once
#include <QObject>
#include <QString>
#include <functional>
#include <memory>

class CComponent;
class QWidget;

// Makes a panel a place where a cart can be dropped by the program's drag: it registers the
// panel's component under a name ("CartRecorder", "CartRecorder2"...), reports the moves and
// releases over the panel and its children to the drag, and hands the ID of a cart dropped on
// it to the panel. The component is let go when the target goes.
class CartDropTarget : public QObject
{
    Q_OBJECT
public:
    using DropCartID = std::function<void(const QString& cartID)>;

    CartDropTarget(QWidget& panel, const QString& componentName, DropCartID drop);
    ~CartDropTarget() override;

    // Watches the panel and every child it has now; the panel calls it once its children are made.
    void WatchPanel();
    std::shared_ptr<CComponent> Component() const { return m_component; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Component_DragDrop(const std::shared_ptr<CComponent>& source);

    QWidget& m_panel;
    std::shared_ptr<CComponent> m_component;
    DropCartID m_drop;
};
