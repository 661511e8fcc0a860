#pragma once
#include <QWidget>
#include <memory>

class IFBlackBoard;
class IFBrowserCart;
class IFBrowserFamily;
class QCheckBox;
class QLineEdit;
class QPushButton;
class QToolButton;
class iCart;

// Chooses a cart ID inside a family: the family and cart browsers to pick from, the ID typed
// or clicked, and a board that says what the ID holds and whether it may be taken.
//
// Mode 0 opens: the ID must be a cart the user may read. Mode 1 saves: the ID must be free in
// a family the user may write (or, with AllowExisting, may be a cart there too), with an ID
// suggested on request or at each family change (Auto), after the highest number or in the
// first gap (FillHoles), and a description and comment to write when DescMode shows them.
class IFCartIDSelector : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(int Mode READ Mode WRITE SetMode)
    Q_PROPERTY(bool DescMode READ DescMode WRITE SetDescMode)
    Q_PROPERTY(bool Auto READ Auto WRITE SetAuto)
    Q_PROPERTY(bool FillHoles READ FillHoles WRITE SetFillHoles)
public:
    static inline const QString Object = QStringLiteral("IFCartIDSelector");
    enum Modes { OpenMode = 0, SaveMode = 1 };

    explicit IFCartIDSelector(QWidget* parent = nullptr);
    ~IFCartIDSelector() override;

    int Mode() const { return m_mode; }
    void SetMode(int mode);
    bool DescMode() const { return m_descMode; }
    void SetDescMode(bool descMode);
    bool Auto() const { return m_auto; }
    void SetAuto(bool autoID);
    bool FillHoles() const { return m_fillHoles; }
    void SetFillHoles(bool fillHoles);
    // In mode 1, an ID that is a cart already may be taken (to write over it).
    bool AllowExisting() const { return m_allowExisting; }
    void SetAllowExisting(bool allow);
    bool AllowSounds() const;
    void SetAllowSounds(bool allow);
    bool AllowMacros() const;
    void SetAllowMacros(bool allow);
    bool AllowControls() const;
    void SetAllowControls(bool allow);

    QString SelectedID() const { return m_selectedID; }
    // Puts the ID in the box and shows its family.
    void SetSelectedID(const QString& id);
    QString SelectedFamilyID() const { return m_selectedFamilyID; }
    void SetSelectedFamilyID(const QString& familyID);
    QString SelectedDescription() const { return m_selectedDescription; }
    QString SelectedComment() const { return m_selectedComment; }

    // Checks the ID in the box and says on the board what it holds; OK follows the answer.
    void FillSInfo();
    // Suggests the family's next free ID in the box.
    void PerformAuto();
    void CmdOK_Click();
    void CmdCancel_Click();

    IFBrowserFamily* IFBrowserFamily1;
    IFBrowserCart* IFBrowserCart1;
    IFBlackBoard* Info;
    QWidget* PnlID;
    QWidget* IDControls;
    QLineEdit* TxtID;
    QCheckBox* ChkAuto;
    QCheckBox* ChkFillHoles;
    QToolButton* CmdAuto;
    QWidget* vsDescComment;
    QLineEdit* txtDescription;
    QLineEdit* txtComment;
    QWidget* ControlButtons;
    QPushButton* CmdOK;
    QPushButton* CmdCancel;

Q_SIGNALS:
    void OK(const QString& id);
    void Cancel();

private:
    void BuildControls();
    QWidget* BuildBrowsers();
    QWidget* BuildIDPanel();
    QWidget* BuildDescComment();
    QWidget* BuildControlButtons();
    void WireControls();
    void ApplyMode();
    void TxtID_Edited(const QString& text);
    void Family_Changed(const QString& familyID);

    bool MayUse(const QString& familyID);
    void FillInfo(const QString& id);
    void PrintCart(const iCart& cart);
    void DisplayError(const QString& text);
    void DisplayWarn(const QString& text);
    void DisplayOk(const QString& text);
    void Display(int color, const QString& text);

    int m_mode = OpenMode;
    bool m_modeSet = false;
    bool m_descMode = false;
    bool m_auto = false;
    bool m_fillHoles = false;
    bool m_allowExisting = false;
    QString m_selectedID;
    QString m_selectedFamilyID;
    QString m_selectedDescription;
    QString m_selectedComment;
};
