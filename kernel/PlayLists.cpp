#include "kernel/PlayLists.h"
#include "kernel/CartWorld.h"
#include "kernel/PlayList.h"
#include "kernel/PlayListStore.h"
#include "kernelapi/KernelError.h"
#include <algorithm>

namespace {
const QString Object = QStringLiteral("iPlayLists");
}

PlayLists::PlayLists(std::shared_ptr<CartWorld> world, QObject* parent) : iPlayLists(parent), m_world(std::move(world))
{
    connect(m_world.get(), &CartWorld::CartMoved, this, &PlayLists::CartMoved);
}

PlayLists::~PlayLists() = default;

int PlayLists::Count() const
{
    return int(Lists().size());
}

std::shared_ptr<iPlayList> PlayLists::Item(int index) const
{
    if (index < 1 || index > Count())
        throw KernelError(QStringLiteral("There is no playlist %1 (there are %2)").arg(index).arg(Count()));
    return Lists()[size_t(index - 1)];
}

std::shared_ptr<iPlayList> PlayLists::Item(const QString& id) const
{
    const int index = IndexOf(id);
    if (index == 0)
        throw KernelError(QStringLiteral("There is no playlist %1").arg(id));
    return Lists()[size_t(index - 1)];
}

int PlayLists::IndexOf(const QString& id) const
{
    const auto& lists = Lists();
    const auto found = std::find_if(lists.begin(), lists.end(),
                                    [&](const auto& list) { return list->ID().compare(id.trimmed(), Qt::CaseInsensitive) == 0; });
    return found == lists.end() ? 0 : int(found - lists.begin()) + 1;
}

std::shared_ptr<iPlayList> PlayLists::Add()
{
    std::vector<std::shared_ptr<PlayList>>& lists = Lists();
    const QString id = m_store->NewID();
    PlayListStore::Header header;
    header.id = id;
    header.name = QStringLiteral("Playlist %1").arg(id.mid(2).toInt());
    m_store->Create(header, {});
    std::shared_ptr<PlayList> list = Make(header);
    lists.push_back(list);
    m_world->Log().Ok(Object, QStringLiteral("Add"), QStringLiteral("Playlist %1 made").arg(id));
    Q_EMIT ChangedCount();
    return list;
}

std::shared_ptr<iPlayList> PlayLists::AddFromMacro(const QString& macroID)
{
    std::vector<std::shared_ptr<PlayList>>& lists = Lists();
    PlayListStore::Header header;
    header.id = m_store->NewID();
    m_store->Create(header, {});
    std::shared_ptr<PlayList> list = Make(header);
    try {
        list->Load(macroID);
    } catch (const KernelError&) {
        m_store->Remove(header.id); // a refused macro leaves no list behind
        throw;
    }
    lists.push_back(list);
    m_world->Log().Ok(Object, QStringLiteral("AddFromMacro"), QStringLiteral("Playlist %1 made from %2").arg(list->ID(), macroID));
    Q_EMIT ChangedCount();
    return list;
}

void PlayLists::Remove(const QString& id)
{
    const int index = IndexOf(id);
    if (index == 0)
        throw KernelError(QStringLiteral("There is no playlist %1").arg(id));
    std::vector<std::shared_ptr<PlayList>>& lists = Lists();
    const std::shared_ptr<PlayList> list = lists[size_t(index - 1)];
    list->Detach();
    m_store->Remove(list->ID());
    lists.erase(lists.begin() + (index - 1));
    m_world->Log().Ok(Object, QStringLiteral("Remove"), QStringLiteral("Playlist %1 removed").arg(list->ID()));
    Q_EMIT ChangedCount();
}

void PlayLists::Refresh()
{
    if (!m_lists)
        return; // nobody read the lists yet: the first reading takes the store as it is
    const std::vector<PlayListStore::Header> stored = m_store->ReadAll();
    std::vector<std::shared_ptr<PlayList>> lists;
    bool countChanged = stored.size() != m_lists->size();
    for (const PlayListStore::Header& header : stored) {
        const int index = IndexOf(header.id);
        if (index > 0) {
            lists.push_back((*m_lists)[size_t(index - 1)]);
            lists.back()->Recheck(header);
        } else {
            lists.push_back(Make(header));
            lists.back()->Restore(m_store->ReadRows(header.id));
            countChanged = true;
        }
    }
    for (const auto& list : *m_lists) {
        if (std::find(lists.begin(), lists.end(), list) == lists.end())
            list->Detach();
    }
    m_lists = std::move(lists);
    if (countChanged)
        Q_EMIT ChangedCount();
}

std::vector<std::shared_ptr<PlayList>>& PlayLists::Lists() const
{
    if (!m_lists) {
        m_store = std::make_shared<PlayListStore>(m_world->Db());
        std::vector<std::shared_ptr<PlayList>> lists;
        for (const PlayListStore::Header& header : m_store->ReadAll()) {
            lists.push_back(Make(header));
            lists.back()->Restore(m_store->ReadRows(header.id));
        }
        m_lists = std::move(lists);
    }
    return *m_lists;
}

// The collection tells its holders of every change of a list's state or name.
std::shared_ptr<PlayList> PlayLists::Make(const PlayListStore::Header& header) const
{
    auto list = std::make_shared<PlayList>(m_world, m_store, header);
    auto* self = const_cast<PlayLists*>(this); // lists are made on first reading, from const members too
    const auto changed = [self, id = header.id] { Q_EMIT self->ChangedPlayList(id); };
    connect(list.get(), &PlayList::StatusChanged, self, changed);
    connect(list.get(), &PlayList::Renamed, self, changed);
    connect(list.get(), &PlayList::Vanished, self, [self, id = header.id] { self->Forget(id); });
    return list;
}

// Another workstation deleted the list: it leaves the collection, as after Remove.
void PlayLists::Forget(const QString& id)
{
    const int index = IndexOf(id);
    if (index == 0)
        return;
    m_lists->erase(m_lists->begin() + (index - 1));
    m_world->Log().Warn(Object, QStringLiteral("Forget"), QStringLiteral("Playlist %1 left the collection: another workstation deleted it").arg(id));
    Q_EMIT ChangedCount();
}

void PlayLists::CartMoved(const QString& fromID, const QString& toID)
{
    if (!m_lists)
        return;
    for (const auto& list : *m_lists)
        list->CartMoved(fromID, toID);
}
