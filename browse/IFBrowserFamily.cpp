#include "browse/IFBrowserFamily.h"
#include "foundation/ui/SilenceDescendants.h"
#include "browse/BrowserRowModel.h"
#include "browse/BrowserView.h"
#include "browse/DragOutOfProgram.h"
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
#include <QApplication>
#include <QCheckBox>
#include <QDrag>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

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
    Dialogs::PopupLine line = Dialogs::PopupLine::Item(heading ? u'-' + Tr(text.mid(1)) : Tr(text), key);
    line.enabled = enabled;
    return line;
}

Dialogs::PopupLine SubMenu(const QString& text, std::vector<Dialogs::PopupLine> lines)
{
    Dialogs::PopupLine line = MenuLine(text);
    line.lines = std::move(lines);
    return line;
}

// Three letters A to Z: the name followed by four digits is a cart ID.
bool IsFamilyName(const QString& name)
{
    return name.size() == 3 && std::all_of(name.begin(), name.end(), [](QChar c) { return c >= u'A' && c <= u'Z'; });
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
    modInterface::AddComponent(QStringLiteral("FamilyBrowser"), m_component);
    m_component->SetShareType(CComponent::ShareFamily);
    m_component->SetControl(this);
    connect(m_component.get(), &CComponent::DragDrop, this, &IFBrowserFamily::Component_DragDrop);
    // A family dragged out of the program goes on as the desktop's drag of its ID.
    m_dragOut = new DragOutOfProgram(m_component, [this] { ListView1_OLEStartDrag(); }, this);
    if (Globals::Kernel())
        Init();
}

IFBrowserFamily::~IFBrowserFamily()
{
    SilenceDescendants(*this);
    modInterface::RemoveComponent(m_component);
}

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
            m_pressAt = static_cast<QMouseEvent*>(event)->position().toPoint();
            OnMouse(static_cast<QMouseEvent*>(event), CDrag::MouseDown);
        } else if (event->type() == QEvent::MouseMove) {
            auto* mouse = static_cast<QMouseEvent*>(event);
            OnMouse(mouse, CDrag::MouseMove);
            if (m_oldDragDrop && OldStyleDragMove(*mouse)) {
                m_pressAt.reset();
                ListView1_OLEStartDrag();
            }
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
    if (notification == CDrag::MouseMove)
        m_dragOut->Watch();
}

// In the old behaviour the list's own drag is the toolkit's, once a press: a row pressed and
// moved past the platform's drag distance.
bool IFBrowserFamily::OldStyleDragMove(const QMouseEvent& event) const
{
    return m_pressAt && (event.buttons() & Qt::LeftButton) && ListView1->indexAt(*m_pressAt).isValid()
           && (event.position().toPoint() - *m_pressAt).manhattanLength() >= QApplication::startDragDistance();
}

void IFBrowserFamily::ListView1_OLEStartDrag()
{
    Guarded(Object, QStringLiteral("ListView1_OLEStartDrag"), [this] {
        if (SelectedFamilyID().isEmpty())
            return;
        auto* data = new QMimeData;
        ListView1_OLESetData(*data);
        auto* drag = new QDrag(ListView1);
        drag->setMimeData(data);
        drag->exec(Qt::CopyAction);
    });
}

void IFBrowserFamily::ListView1_OLESetData(QMimeData& data) const
{
    data.setText(SelectedFamilyID());
}

void IFBrowserFamily::ShowMenu(const QPoint& globalPos)
{
    const QVector<Dialogs::PopupLine> lines{
        MenuLine(QStringLiteral("-Family")),
        MenuLine(QStringLiteral("Edit..."), KeyEdit),
        SubMenu(QStringLiteral("Delete"), {MenuLine(QStringLiteral("Are you sure?"), {}, false),
                                           MenuLine(QStringLiteral("No"), KeyCancel), MenuLine(QStringLiteral("Yes"), KeyDelete)}),
        MenuLine(QStringLiteral("Populate"), KeyPopulate),
        MenuLine(QStringLiteral("-Families")),
        MenuLine(QStringLiteral("New family..."), KeyNewFamily),
        MenuLine(QStringLiteral("Populate"), KeyPopulateAll),
        MenuLine(QStringLiteral("-Cancel")),
        MenuLine(QStringLiteral("Cancel"), KeyCancel)};
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

// Asks for a name until the box is left empty or the name passes the test of its first cart
// ID, then for the description. A family that exists already is refused by the kernel.
void IFBrowserFamily::NewFamily()
{
    QString name;
    do {
        name = Dialogs::InputBox(Tr(QStringLiteral("Enter the family name (3 letters). Example AAA"))).value_or(QString()).trimmed().toUpper();
    } while (!name.isEmpty() && !FreeFamilyName(name));
    if (name.isEmpty())
        return;
    const std::optional<QString> description = Dialogs::InputBox(Tr(QStringLiteral("Enter the family description.")));
    if (description)
        m_families->Add(name, description->trimmed());
}

// The test of a new name on the cart ID it starts with, the name followed by "0000": that must
// be a cart ID, and no cart may have it.
bool IFBrowserFamily::FreeFamilyName(const QString& name)
{
    return IsFamilyName(name) && !Globals::Kernel()->Carts()->Exists(name + QStringLiteral("0000"));
}
