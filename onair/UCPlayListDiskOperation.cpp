#include "onair/UCPlayListDiskOperation.h"
#include "browse/MacroDescription.h"
#include "editing/KorvaneCommonDialog.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Tr.h"
#include "foundation/ui/SilenceDescendants.h"
#include "kernelapi/iPlayList.h"
#include "onair/PlayListButtonPictures.h"
#include <QHBoxLayout>
#include <QToolButton>

UCPlayListDiskOperation::UCPlayListDiskOperation(QWidget* parent)
    : QWidget(parent), m_dialog(new KorvaneCommonDialog(this))
{
    setObjectName(Object);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(2);
    CmdRefresh = MakeButton(QStringLiteral("CmdRefresh"), QStringLiteral("Refresh"), QStringLiteral("Refresh contents"));
    CmdReload = MakeButton(QStringLiteral("CmdReload"), QStringLiteral("Reload"), QStringLiteral("Reload from disk"));
    CmdSave = MakeButton(QStringLiteral("CmdSave"), QStringLiteral("Save"), QStringLiteral("Save list to disk"));
    for (QToolButton* button : {CmdRefresh, CmdReload, CmdSave})
        row->addWidget(button);
    connect(CmdRefresh, &QToolButton::clicked, this, &UCPlayListDiskOperation::CmdRefresh_Click);
    connect(CmdReload, &QToolButton::clicked, this, &UCPlayListDiskOperation::CmdReload_Click);
    connect(CmdSave, &QToolButton::clicked, this, &UCPlayListDiskOperation::CmdSave_Click);
    m_dialog->SetCartFilter(KorvaneCommonDialog::Macros);
    GrabEnabled();
}

UCPlayListDiskOperation::~UCPlayListDiskOperation()
{
    SilenceDescendants(*this);
    SetPlayList(nullptr);
}

QToolButton* UCPlayListDiskOperation::MakeButton(const QString& name, const QString& glyph, const QString& tip)
{
    auto* button = new QToolButton(this);
    button->setObjectName(name);
    button->setProperty("glyph", glyph);
    button->setToolTip(Tr(tip));
    button->setFocusPolicy(Qt::NoFocus);
    button->setMinimumSize(24, 24);
    button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
    return button;
}

void UCPlayListDiskOperation::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    for (QToolButton* button : {CmdRefresh, CmdReload, CmdSave}) {
        const int side = std::max(16, height() - 2);
        button->setFixedWidth(side);
        const QString glyph = button->property("glyph").toString();
        QIcon icon(PlayListButtonPictures::Picture(glyph, side - 4));
        icon.addPixmap(PlayListButtonPictures::Picture(glyph + QStringLiteral("_Disabled"), side - 4), QIcon::Disabled);
        button->setIcon(icon);
        button->setIconSize(QSize(side - 4, side - 4));
    }
}

void UCPlayListDiskOperation::Init()
{
    GrabEnabled();
}

void UCPlayListDiskOperation::SetPlayList(const std::shared_ptr<iPlayList>& list)
{
    for (const auto& connection : std::exchange(m_connections, {}))
        disconnect(connection);
    m_list = list;
    if (m_list) {
        iPlayList* raw = m_list.get();
        // Direct: the list waits for the answer of its questions.
        m_connections << connect(raw, &iPlayList::RequestNameToSave, this, &UCPlayListDiskOperation::iPlayList_RequestNameToSave, Qt::DirectConnection)
                      << connect(raw, &iPlayList::RequestDescriptionToSave, this, &UCPlayListDiskOperation::iPlayList_RequestDescriptionToSave, Qt::DirectConnection)
                      << connect(raw, &iPlayList::StatusChanged, this, &UCPlayListDiskOperation::iPlayList_StatusChanged)
                      // A save or load of a list that was not modified changes its macro without a status event.
                      << connect(raw, &iPlayList::ContentChanged, this, &UCPlayListDiskOperation::iPlayList_StatusChanged);
    }
    GrabEnabled();
}

void UCPlayListDiskOperation::SetEnabled(bool enabled)
{
    m_enabled = enabled;
    GrabEnabled();
}

void UCPlayListDiskOperation::GrabEnabled()
{
    bool loaded = false;
    Guarded(Object, QStringLiteral("Enabled_Let"), [&] { loaded = m_list && m_list->LoadedMacro(); });
    CmdSave->setEnabled(m_enabled && loaded);
    CmdReload->setEnabled(m_enabled && loaded);
    CmdRefresh->setEnabled(m_enabled);
}

void UCPlayListDiskOperation::iPlayList_StatusChanged()
{
    GrabEnabled();
}

void UCPlayListDiskOperation::CmdRefresh_Click()
{
    Q_EMIT Refresh();
}

void UCPlayListDiskOperation::CmdReload_Click()
{
    Guarded(Object, QStringLiteral("CmdReload_Click"), [this] {
        if (m_list)
            m_list->Reload();
    });
}

void UCPlayListDiskOperation::CmdSave_Click()
{
    Guarded(Object, QStringLiteral("CmdSave_Click"), [this] {
        if (!m_list)
            return;
        m_dialogDescription.clear();
        m_list->Save();
        m_dialogDescription.clear();
    });
}

void UCPlayListDiskOperation::iPlayList_RequestNameToSave(QString* name)
{
    Guarded(Object, QStringLiteral("iPlayList_RequestNameToSave"), [&] {
        m_dialog->SetCartFilter(KorvaneCommonDialog::Macros);
        m_dialog->SetCartId(*name);
        m_dialog->ShowSaveCart(true);
        *name = m_dialog->CartId().trimmed();
        m_dialogDescription = name->isEmpty() ? QString() : m_dialog->CartDescription().trimmed();
    });
}

void UCPlayListDiskOperation::iPlayList_RequestDescriptionToSave(QString* description)
{
    Guarded(Object, QStringLiteral("iPlayList_RequestDescriptionToSave"), [&] {
        if (!m_dialogDescription.isEmpty()) {
            *description = m_dialogDescription;
            return;
        }
        *description = MacroDescription::Ask();
    });
}
