#include "onair/FrmFastCartColorEditor.h"
#include "foundation/Tr.h"
#include "foundation/ui/SilenceDescendants.h"
#include "onair/IFFastCart.h"
#include "onair/IFFastCartColorEditor.h"
#include <QVBoxLayout>
#include <utility>

namespace {
FrmFastCartColorEditor::ModalRunner& Runner()
{
    static FrmFastCartColorEditor::ModalRunner runner = [](FrmFastCartColorEditor& form) { form.exec(); };
    return runner;
}
}

FrmFastCartColorEditor::FrmFastCartColorEditor(QWidget* parent)
    : QDialog(parent)
{
    setObjectName(QStringLiteral("FrmFastCartColorEditor"));
    setWindowTitle(Tr(QStringLiteral("Fast cart colors")));
    IFFastCartColorEditor1 = new IFFastCartColorEditor(this);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(IFFastCartColorEditor1);
    connect(IFFastCartColorEditor1, &IFFastCartColorEditor::OK, this, &FrmFastCartColorEditor::IFFastCartColorEditor1_OK);
    connect(IFFastCartColorEditor1, &IFFastCartColorEditor::Cancel, this, &QDialog::reject);
}

FrmFastCartColorEditor::~FrmFastCartColorEditor()
{
    SilenceDescendants(*this);
}

void FrmFastCartColorEditor::SetSampleFastCart(const IFFastCart& sample)
{
    IFFastCartColorEditor1->SetSampleFastCart(sample);
}

void FrmFastCartColorEditor::IFFastCartColorEditor1_OK()
{
    m_result = IFFastCartColorEditor1->SerializedColorSet();
    accept();
}

std::optional<QString> FrmFastCartColorEditor::Edit(const IFFastCart& sample)
{
    FrmFastCartColorEditor form(sample.window());
    form.setWindowModality(Qt::WindowModal);
    form.SetSampleFastCart(sample);
    Runner()(form);
    return form.Result();
}

FrmFastCartColorEditor::ModalRunner FrmFastCartColorEditor::SetModalRunner(ModalRunner runner)
{
    return std::exchange(Runner(), std::move(runner));
}
