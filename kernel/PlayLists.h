#pragma once
#include "kernel/PlayListStore.h"
#include "kernelapi/iPlayLists.h"
#include <optional>
#include <vector>

class CartWorld;
class PlayList;

// The station's playlists, in the order of their IDs ("PL0001", "PL0002", ...), read from the
// kernel's tables the first time they are needed.
class PlayLists : public iPlayLists
{
    Q_OBJECT
public:
    explicit PlayLists(std::shared_ptr<CartWorld> world, QObject* parent = nullptr);
    ~PlayLists() override;

    int Count() const override;
    std::shared_ptr<iPlayList> Item(int index) const override;
    std::shared_ptr<iPlayList> Item(const QString& id) const override;
    std::shared_ptr<iPlayList> Add() override;
    std::shared_ptr<iPlayList> AddFromMacro(const QString& macroID) override;
    void Remove(const QString& id) override;
    int IndexOf(const QString& id) const override;
    // Takes up what the store holds: lists changed elsewhere take their stored rows, lists made
    // elsewhere join the collection, lists deleted elsewhere leave it (ChangedCount).
    void Refresh();

private:
    std::vector<std::shared_ptr<PlayList>>& Lists() const;
    std::shared_ptr<PlayList> Make(const PlayListStore::Header& header) const;
    void CartMoved(const QString& fromID, const QString& toID);
    void Forget(const QString& id);

    std::shared_ptr<CartWorld> m_world;
    mutable std::shared_ptr<PlayListStore> m_store;
    mutable std::optional<std::vector<std::shared_ptr<PlayList>>> m_lists;
};
