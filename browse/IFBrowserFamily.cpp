#include "browse/IFBrowserFamily.h"
#include "browse/BrowserRowModel.h"
#include "browse/BrowserView.h"
#include "browse/FamilyRights.h"
#include "browse/RowSearch.h"
#include "browse/drag/CDrag.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Globals.h"
#include "foundation/Tr.h"
#include "foundation/ui/Dialogs.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/iCarts.h"
#include "kernelapi/iFamilies.h"
#include "kernelapi/iFamily.h"
#include "shell/CInterface.h"
#include "shell/components/CComponent.h"
#include "shell/modInterface.h"
#include <QCheckBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

namespace {
const QString Object = QStringLiteral("IFBrowserFamily");
const QString KeyEdit = QStringLiteral("IFBrowserFamily.CFamily.Edit");
const QString KeyDelete = QStringLiteral("IFBrowserFamily.CFamily.Delete");
const QString KeyPopulate = QStringLiteral("IFBrowserFamily.CFamily.Populate");
const QString KeyNewFamily = QStringLiteral("IFBrowserFamily.CFamilies.NewFamily");
const QString KeyPopulateAll = QStringLiteral("IFBrowserFamily.CFamilies.Populate");
const QString KeyCancel = QStringLiteral("Cancel");

// A line of the popup menu, translated; a heading keeps its leading "-" before the translation.
Dialogs::PopupLine MenuLine(const QString& text, const QString& key = {}, bool enabled = true)
{
    const bool heading = text.startsWith(u'-');
    return {heading ? u'-' + Tr(text.mid(1)) : Tr(text), key, {}, enabled};
}

bool IsFamilyName(const QString& name)
{
    return name.size() == 3 && name[0].isLetter() && name[1].isLetter() && name[2].isLetter();
}

QString ConfigText(const QString& key)
{
    std::shared_ptr<CKernel> kernel = Globals::Kernel();
    return kernel ? kernel->Config(key).toString() : QString();
}
}

IFBrowserFamily::IFBrowserFamily(QWidget* parent)
    : QWidget(parent), m_rows(new BrowserRowModel({Tr(QStringLiteral("Family")), Tr(QStringLiteral("Description"))}, this)),
      m_component(std::make_shared<CComponent>())
{
    setObjectName(QStringLiteral("IFBrowserFamily"));
    BuildControls();
    m_component->SetName(QStringLiteral("FamilyBrowser"));
    m_component->SetShareType(CComponent::ShareFamily);
    m_component->SetControl(this);
    connect(m_component.get(), &CComponent::DragDrop, this, &IFBrowserFamily::Component_DragDrop);
    if (Globals::Kernel())
        Init();
}

IFBrowserFamily::~IFBrowserFamily() = default;

void IFBrowserFamily::BuildControls()
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->setSpacing(4);
    auto* search = new QHBoxLayout;
    Text1 = new QLineEdit(this);
    Text1->setObjectName(QStringLiteral("Text1"));
    Text1->setPlaceholderText(Tr(QStringLiteral("ID or description")));
    Command1 = new QToolButton(this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command1->setText(Tr(QStringLiteral("Search")));
    Command1->setFocusPolicy(Qt::NoFocus);
    ChkAll = new QCheckBox(Tr(QStringLiteral("All")), this);
    ChkAll->setObjectName(QStringLiteral("ChkAll"));
    search->addWidget(Text1, 1);
    search->addWidget(Command1);
    search->addWidget(ChkAll);
    layout->addLayout(search);

    ListView1 = new BrowserView(m_rows, this);
    ListView1->setObjectName(QStringLiteral("ListView1"));
    ListView1->header()->resizeSection(0, 76);
    layout->addWidget(ListView1, 1);

    Timer1 = new QTimer(this);
    Timer1->setObjectName(QStringLiteral("Timer1"));
    Timer1->setSingleShot(true);
    Timer1->setInterval(ClickDelayMs);

    ListView1->viewport()->installEventFilter(this);
    ListView1->installEventFilter(this);
    Text1->installEventFilter(this);
    connect(Timer1, &QTimer::timeout, this, &IFBrowserFamily::RaiseClick);
    connect(ChkAll, &QCheckBox::toggled, this, &IFBrowserFamily::SetShowAll);
    connect(Command1, &QToolButton::clicked, this, &IFBrowserFamily::OnSearch);
    connect(Text1, &QLineEdit::returnPressed, this, &IFBrowserFamily::OnSearch);
    connect(ListView1->header(), &QHeaderView::sectionClicked, this, [this](int column) { m_rows->sort(column); });
    connect(ListView1->selectionModel(), &QItemSelectionModel::selectionChanged, this, &IFBrowserFamily::PerformSelection);
    connect(ListView1, &QTreeView::doubleClicked, this, [this] {
        Guarded(Object, QStringLiteral("ListView1_DblClick"), [this] {
            if (std::shared_ptr<iFamily> family = SelectedFamily())
                family->Refresh();
        });
    });
}

void IFBrowserFamily::Init()
{
    Guarded(Object, QStringLiteral("Init"), [this] {
        m_families = Globals::Kernel()->Families();
        connect(m_families.get(), &iFamilies::Changed, this, &IFBrowserFamily::iFamilies_Changed, Qt::UniqueConnection);
        Fill();
    });
}

void IFBrowserFamily::SetShowAll(bool showAll)
{
    m_showAll = showAll;
    Fill();
    if (ChkAll->isChecked() != showAll)
        ChkAll->setChecked(showAll);
}

void IFBrowserFamily::SetFilterLevel(int level)
{
    m_filterLevel = level;
    Fill();
}

void IFBrowserFamily::Fill()
{
    Guarded(Object, QStringLiteral("Fill"), [this] {
        if (!m_families)
            return;
        const QString kept = SelectedFamilyID();
        const QString tmpFamily = ConfigText(QStringLiteral("FamEspTmp"));
        const QString conFamily = ConfigText(QStringLiteral("FamEspCon"));
        std::vector<BrowserRow> rows;
        for (int index = 1; index <= m_families->Count(); ++index) {
            const std::shared_ptr<iFamily> family = m_families->Item(index);
            const FamilyRights rights = FamilyRights::Of(*family, tmpFamily, conFamily);
            if (!rights.Shown(m_showAll, m_filterLevel))
                continue;
            BrowserRow row;
            row.key = family->ID();
            row.text = row.key;
            row.sub1 = family->Description();
            row.icon = QStringLiteral("Family") + QString::number(rights.Icon());
            rows.push_back(std::move(row));
        }
        const QSignalBlocker quiet(ListView1->selectionModel());
        m_rows->Clear();
        m_rows->Append(std::move(rows));
        if (m_rows->Count() == 0)
            Q_EMIT Empty();
        else if (!kept.isEmpty())
            ListView1->SelectRow(m_rows->Find(kept));
    });
}

void IFBrowserFamily::iFamilies_Changed()
{
    Fill();
}

int IFBrowserFamily::SelectedRow() const
{
    const QModelIndexList rows = ListView1->selectionModel()->selectedRows();
    return rows.isEmpty() ? -1 : rows.first().row();
}

QString IFBrowserFamily::SelectedFamilyID() const
{
    const int row = SelectedRow();
    return row < 0 ? QString() : m_rows->Row(row).key;
}

void IFBrowserFamily::SetSelectedFamilyID(const QString& id)
{
    Guarded(Object, QStringLiteral("SelectedFamilyID"), [&] {
        const QString family = Globals::Kernel()->Carts()->FamilyIDOf(id).trimmed();
        if (family.isEmpty())
            return;
        ListView1->SelectRow(RowSearch(family, true, true, false).Next(*m_rows, SelectedRow()));
    });
}

std::shared_ptr<iFamily> IFBrowserFamily::SelectedFamily() const
{
    const QString id = SelectedFamilyID();
    return id.isEmpty() || !m_families ? nullptr : m_families->Item(id);
}

void IFBrowserFamily::PerformSelection()
{
    Guarded(Object, QStringLiteral("PerformSelection"), [this] {
        const std::shared_ptr<iFamily> family = SelectedFamily();
        if (!family)
            return;
        m_component->SetSharedObject(family);
        m_component->SetShareType(CComponent::ShareFamily);
        Q_EMIT Changed(family->ID());
        Timer1->start();
    });
}

void IFBrowserFamily::RaiseClick()
{
    Timer1->stop();
    const QString id = SelectedFamilyID();
    if (!id.isEmpty())
        Q_EMIT Click(id);
}

void IFBrowserFamily::Search(const QString& text)
{
    ListView1->SelectRow(RowSearch(text, false, false, Globals::ConfigIsYes(QStringLiteral("RelaxedSearch"))).Next(*m_rows, SelectedRow()));
}

void IFBrowserFamily::OnSearch()
{
    Search(Text1->text());
    Text1->selectAll();
}

void IFBrowserFamily::Component_DragDrop(const std::shared_ptr<CComponent>&)
{
    // A family list takes nothing from a drop; it only offers its families.
}

bool IFBrowserFamily::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == ListView1->viewport()) {
        if (event->type() == QEvent::MouseButtonPress) {
            OnMouse(static_cast<QMouseEvent*>(event), CDrag::MouseDown);
        } else if (event->type() == QEvent::MouseMove) {
            auto* mouse = static_cast<QMouseEvent*>(event);
            OnMouse(mouse, CDrag::MouseMove);
            // A held button drags the family: the list must not move its selection meanwhile.
            return mouse->buttons() != Qt::NoButton;
        } else if (event->type() == QEvent::MouseButtonRelease) {
            auto* mouse = static_cast<QMouseEvent*>(event);
            OnMouse(mouse, CDrag::MouseUp);
            if (mouse->button() == Qt::RightButton)
                ShowMenu(mouse->globalPosition().toPoint());
        }
    } else if (watched == ListView1 && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            RaiseClick();
            return true;
        }
    } else if (watched == Text1 && (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)) {
        Q_EMIT IWantTheKeys(event->type() == QEvent::FocusIn);
    }
    return QWidget::eventFilter(watched, event);
}

void IFBrowserFamily::OnMouse(QMouseEvent* event, int notification)
{
    if (m_oldDragDrop)
        return;
    if (notification == CDrag::MouseDown)
        m_component->SetControl(this);
    modInterface::NotifyDrag(m_component, notification, event);
}

void IFBrowserFamily::ShowMenu(const QPoint& globalPos)
{
    const QVector<Dialogs::PopupLine> lines{
        MenuLine(QStringLiteral("-Family")), MenuLine(QStringLiteral("Edit..."), KeyEdit),
        MenuLine(QStringLiteral("Populate"), KeyPopulate), MenuLine(QStringLiteral("-Delete")),
        MenuLine(QStringLiteral("Are you sure?"), {}, false), MenuLine(QStringLiteral("No"), KeyCancel),
        MenuLine(QStringLiteral("Yes"), KeyDelete), MenuLine(QStringLiteral("-Families")),
        MenuLine(QStringLiteral("New family..."), KeyNewFamily), MenuLine(QStringLiteral("Populate"), KeyPopulateAll),
        MenuLine(QStringLiteral("-Cancel")), MenuLine(QStringLiteral("Cancel"), KeyCancel)};
    Dispatch(Dialogs::PopupMenu(lines, globalPos));
}

void IFBrowserFamily::Dispatch(const QString& key)
{
    Guarded(Object, QStringLiteral("Dispatch"), [&] {
        if (key == KeyEdit)
            Dialogs::MessageBox(Tr(QStringLiteral("Not implemented")));
        else if (key == KeyDelete && !SelectedFamilyID().isEmpty())
            m_families->Remove(SelectedFamilyID());
        else if (key == KeyPopulate) {
            if (std::shared_ptr<iFamily> family = SelectedFamily())
                family->Refresh();
        } else if (key == KeyNewFamily)
            NewFamily();
        else if (key == KeyPopulateAll)
            m_families->Refresh();
    });
}

// Asks for a three-letter name that no family has, again until one is given or the box is
// left empty, then for the description.
void IFBrowserFamily::NewFamily()
{
    QString name;
    for (;;) {
        name = Dialogs::InputBox(Tr(QStringLiteral("Enter the family name (3 letters). Example AAA"))).value_or(QString()).trimmed().toUpper();
        if (name.isEmpty())
            return;
        if (IsFamilyName(name) && !m_families->Exists(name))
            break;
    }
    const std::optional<QString> description = Dialogs::InputBox(Tr(QStringLiteral("Enter the family description.")));
    if (description)
        m_families->Add(name, description->trimmed());
}
