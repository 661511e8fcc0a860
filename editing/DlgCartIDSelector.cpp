#include "editing/DlgCartIDSelector.h"
#include "editing/IFCartIDSelector.h"
#include "foundation/Tr.h"
#include "foundation/ui/SilenceDescendants.h"
#include <QVBoxLayout>

DlgCartIDSelector::DlgCartIDSelector(QWidget* parent)
    : QDialog(parent)
{
    setObjectName(QStringLiteral("DlgCartIDSelector"));
    setWindowTitle(Tr(QStringLiteral("Cart")));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    IFCartIDSelector1 = new IFCartIDSelector(this);
    IFCartIDSelector1->setObjectName(QStringLiteral("IFCartIDSelector1"));
    layout->addWidget(IFCartIDSelector1);
    resize(760, 560);
    connect(IFCartIDSelector1, &IFCartIDSelector::OK, this, &DlgCartIDSelector::IFCartIDSelector_OK);
    connect(IFCartIDSelector1, &IFCartIDSelector::Cancel, this, &DlgCartIDSelector::IFCartIDSelector_Cancel);
}

DlgCartIDSelector::~DlgCartIDSelector()
{
    SilenceDescendants(*this);
}

void DlgCartIDSelector::IFCartIDSelector_OK(const QString& id)
{
    m_id = id;
    accept();
}

void DlgCartIDSelector::IFCartIDSelector_Cancel()
{
    m_id.clear();
    reject();
}
