#pragma once
#include "editing/EraserStatusTable.h"
#include "foundation/controls/FlashingLight.h"
#include <QColor>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <memory>

class CComponent;
class CartDropTarget;
class DisplayLabel;
class PanelPlaces;
class QLabel;
class UCButton;
class UCProgressBar;
class iCart;

// Deletes a cart once its button has been held down for five seconds. A cart dropped on the
// panel waits ("Erase?"); holding Erase fills the bar ("Erasing") and, past five seconds, the
// kernel deletes the cart with its sound file ("Erased"). Releasing the button ends the hold:
// before five seconds nothing is deleted ("Not Erased"); either way the panel flashes
// ("Expiring") and lets the cart go five seconds after the release.
//
// Times come from a millisecond clock, the machine's tick count unless a test sets another.
class IFCartEraser : public QWidget
{
    Q_OBJECT
public:
    using Clock = std::function<qint64()>;

    static inline const QString Object = QStringLiteral("IFCartEraser");
    static inline const QString ComponentName = QStringLiteral("CartEraser");
    // How long Erase is held before the cart goes, and how long the panel waits after the
    // release before it lets the cart go.
    static constexpr qint64 HoldMs = 5000;
    static constexpr qint64 ExpiryMs = 5000;
    static constexpr int EraseTickMs = 100;
    static constexpr int FlashTickMs = 250;

    explicit IFCartEraser(QWidget* parent = nullptr);
    ~IFCartEraser() override;

    std::shared_ptr<iCart> Cart() const { return m_cart; }
    // A cart waits to be erased (status 1); none empties the panel (status 0).
    void SetCart(std::shared_ptr<iCart> cart);
    qint32 Status() const { return m_status; }
    void SetStatus(qint32 status);
    bool Flash() const { return m_flashLight.Flashing(); }
    bool HighLight() const { return m_flashLight.Lit(); }

    // An old-style drop: the cart of that ID waits to be erased.
    void Drop(const QString& cartID, float x = 0, float y = 0);

    void CmdErase_MouseDown();
    void CmdErase_MouseUp();
    void CmdEject_Click();
    void TmrErase_Timer();
    void TmrFlash_Timer();
    const QTimer& TmrErase() const { return m_tmrErase; }
    const QTimer& TmrFlash() const { return m_flashLight.Timer(); }

    void SetClock(Clock clock) { m_clock = std::move(clock); }
    // The key of the status picture on show.
    QString StatusPicture() const { return m_statusPicture; }
    std::shared_ptr<CComponent> Component() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    DisplayLabel* LblTitle;
    DisplayLabel* LblStatus;
    QLabel* ImgStatus;
    UCButton* CmdErase;
    UCButton* CmdEject;
    UCProgressBar* Progress;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void CreateControls();
    void RenderPictures();
    void ShowStatusPicture(const QString& key);
    void ApplyRow(const EraserStatusTable::Row& row);
    void SetStatusColors(bool red);
    void ShowHighLight();
    void EraseCart();

    std::unique_ptr<PanelPlaces> m_places;
    CartDropTarget* m_dropTarget;
    QTimer m_tmrErase;
    FlashingLight m_flashLight;
    Clock m_clock;
    std::shared_ptr<iCart> m_cart;
    qint32 m_status = EraserStatusTable::NoCart;
    qint64 m_startTime = 0;
    qint64 m_expiryTime = 0;
    // Set once the kernel deleted the cart of this hold.
    bool m_erased = false;
    QString m_statusPicture;
    // The translation of "Ready", which keys the picture of a waiting cart.
    QString m_readyKey;
    QColor m_statusBack;
    QColor m_statusFore;
};
