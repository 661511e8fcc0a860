#pragma once
#include <QDialog>
#include <functional>
#include <optional>

class IFFastCart;
class IFFastCartColorEditor;

// The modal form around the colour editor. OK keeps the colours under edit and closes; Cancel
// closes with no result.
//
// The modal show is a seam: the program runs the form's own loop, tests install a runner that
// works the form and returns, so that nothing blocks.
class FrmFastCartColorEditor : public QDialog
{
    Q_OBJECT
public:
    using ModalRunner = std::function<void(FrmFastCartColorEditor& form)>;

    explicit FrmFastCartColorEditor(QWidget* parent = nullptr);
    ~FrmFastCartColorEditor() override;

    void SetSampleFastCart(const IFFastCart& sample);
    // The colours chosen with OK, in their stored form; nothing before OK or after Cancel.
    std::optional<QString> Result() const { return m_result; }

    // Shows the form over the pad with the pad as its sample; the stored form of the colours
    // chosen, or nothing when the user cancelled.
    static std::optional<QString> Edit(const IFFastCart& sample);
    // Installs how the form is shown for the whole process; returns the previous runner.
    static ModalRunner SetModalRunner(ModalRunner runner);

    IFFastCartColorEditor* IFFastCartColorEditor1;

private:
    void IFFastCartColorEditor1_OK();

    std::optional<QString> m_result;
};
