#pragma once
#include <QWidget>
#include <memory>

class CComponent;
class DataPicture;
class QMouseEvent;
class QTimer;
class VolmarPannel;

// A small panel that prints what is known about the thing the user points at: a cart, a
// family, or nothing. A host hands it a browser's hover component (DelayedLoad, so that a
// pointer running down a list redraws once it rests) or a cart ID (Drop); a component dropped
// on it by the drag is shown at once. Its own component, "DataViewer", offers the cart last
// dropped, so the panel can also be the start of a drag.
class IFDataViewer : public QWidget
{
    Q_OBJECT
public:
    static constexpr int DelayedLoadMs = 150;

    explicit IFDataViewer(QWidget* parent = nullptr);
    ~IFDataViewer() override;

    // Shows the source once TmrDelayedLoad has run out; each call starts the wait again.
    void DelayedLoad(const std::shared_ptr<CComponent>& source);
    // Shows the cart of that ID, through the viewer's own component.
    void Drop(const QString& cartID);
    void Component_DragDrop(const std::shared_ptr<CComponent>& source);
    // The own component changed: the last source is shown again.
    void Component_ChangedProperty();

    std::shared_ptr<CComponent> Component() const { return m_component; }
    std::shared_ptr<CComponent> Source() const { return m_source; }
    QString CartID() const { return m_cartID; }
    // The lines shown, label and value together.
    QStringList Text() const;

    VolmarPannel* VolmarPannel1;
    DataPicture* PicData;
    QTimer* TmrDelayedLoad;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void BuildControls();
    void Load();
    void OnMouse(const QMouseEvent* event, int notification);

    std::shared_ptr<CComponent> m_component;
    std::shared_ptr<CComponent> m_source;
    QString m_cartID;
};
