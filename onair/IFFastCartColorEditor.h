#pragma once
#include <QWidget>

class IFColorPicker;
class IFFastCart;
class QListWidget;
class QPushButton;

// Edits a pad's five colours on a live sample. Three pads show the sample's cart: as it came
// in (IFFastCartOriginal), in the default colours (IFFastCartDefault) and in the colours under
// edit (IFFastCartModified). GrdItems lists the parts; the picker edits the chosen part's
// colour on the modified pad at once, and a click on a part of the modified pad chooses its row.
class IFFastCartColorEditor : public QWidget
{
    Q_OBJECT
public:
    static inline const QString Object = QStringLiteral("IFFastCartColorEditor");
    // The rows of GrdItems, in order; the first five are the colour parts.
    enum Row { BackgroundRow = 0, DescriptionRow, CommentRow, ShortcutRow, TimeRow, IconRow };

    explicit IFFastCartColorEditor(QWidget* parent = nullptr);
    ~IFFastCartColorEditor() override;

    void SetSampleFastCart(const IFFastCart& sample);
    // The colours under edit in their stored form.
    QString SerializedColorSet() const;
    // The row chosen; -1 when none is.
    int SelectedRow() const;
    void SelectRow(int row);

    QListWidget* GrdItems;
    IFColorPicker* IFColorPicker1;
    IFFastCart* IFFastCartOriginal;
    IFFastCart* IFFastCartDefault;
    IFFastCart* IFFastCartModified;
    QPushButton* CmdOk;
    QPushButton* CmdCancel;
    QPushButton* CmdRevertDefault;
    QPushButton* CmdRevertPrevious;
    QPushButton* CmdStoreDefault;

Q_SIGNALS:
    void OK();
    void Cancel();

private:
    void CreateControls();
    void ConnectControls();
    IFFastCart* MakeSample(const QString& name);
    QPushButton* MakeButton(const QString& name, const QString& caption);
    void GrdItems_SelectionChange();
    void IFColorPicker1_Changed();
    void CmdRevertDefault_Click();
    void CmdRevertPrevious_Click();
    void CmdStoreDefault_Click();
    void CaptionSample(IFFastCart* pad) const;
};
