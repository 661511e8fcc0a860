#pragma once
#include <QFrame>
#include <memory>

class QLabel;
class QLineEdit;
class QTimer;
class QToolButton;
class iCart;

// The cart browser's inline editor of a cart's description and comment. It opens below the
// selected row as a blind drawn down over the list, a step every 25 ms, and is rolled up
// again when the edit is accepted or cancelled; it always stays inside its parent, moving up
// when the row is near the bottom. While open it wants the keys: Enter in the description
// goes on to the comment, Enter in the comment accepts, Escape cancels. Accepting writes and
// saves the cart only when a text changed; a cart deleted meanwhile is told, never written.
class CartHeaderEditor : public QFrame
{
    Q_OBJECT
public:
    static inline const QString Object = QStringLiteral("CartHeaderEditor");
    // Heights in pixels, at 15 twips a pixel: the panel moves 100 twips a tick, and once it
    // has reached 1375 twips it takes its full 1475.
    static constexpr int StepHeight = 7;
    static constexpr int OpenedAt = 92;
    static constexpr int FullHeight = 98;
    static constexpr int TickMs = 25;

    explicit CartHeaderEditor(QWidget* parent);

    // Opens on the cart at height 0, its top at top in the parent's coordinates, across the
    // given left and width.
    void Edit(const std::shared_ptr<iCart>& cart, int top, int left, int width);
    void EditAccept();
    void EditCancel();
    // Open, or opening: not rolled up nor rolling up.
    bool IsEditing() const { return m_cart != nullptr; }
    std::shared_ptr<iCart> Cart() const { return m_cart; }

    // One tick of each timer, also callable directly.
    void TmrOpen_Timer();
    void TmrClose_Timer();

    QLabel* LblSelectedID;
    QLineEdit* TxtDescription;
    QLineEdit* TxtComment;
    QToolButton* CmdAccept;
    QToolButton* CmdCancel;
    QTimer* TmrOpen;
    QTimer* TmrClose;

Q_SIGNALS:
    // True when the editor opens, false when it is accepted or cancelled.
    void IWantTheKeys(bool wanted);
    // The cart's new texts were saved.
    void Saved(const QString& cartID);
    // Rolled up and hidden.
    void Closed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void BuildControls();
    bool Write();
    void Close();
    // Sets the height, moving the panel up as far as needed to keep it inside the parent, and
    // the width that keeps its right margin.
    void SetHeight(int height);

    QWidget* m_content;
    std::shared_ptr<iCart> m_cart;
    QString m_description;
    QString m_comment;
    int m_top = 0;
    // The room between the panel's right edge and its parent's, kept when the parent resizes.
    int m_rightMargin = 0;
};
