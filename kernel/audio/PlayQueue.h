#pragma once
#include "kernel/audio/PlayStep.h"
#include <QString>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

class iCart;
class iMacro;
class iPlayList;

// What a player holds: one sound, the sound steps of a macro, or the rows of a playlist.
// A macro's steps are fixed at loading and go on one into the next by themselves; a playlist
// is read row by row as it plays, so that edits and a moved next-row arrow take effect, and
// it goes on by itself only while the list is chained. Rows and entries that hold no sound
// (blank, ignored, control carts) are passed over.
class PlayQueue
{
public:
    using MacroSource = std::function<std::shared_ptr<iMacro>(const QString& cartID)>;

    PlayQueue() = default;
    // Each throws KernelError when there is nothing it can play.
    static PlayQueue OfSource(const PlaySource& source, const QString& title);
    static PlayQueue OfCart(const std::shared_ptr<iCart>& cart, const MacroSource& macros);
    static PlayQueue OfPlayList(const std::shared_ptr<iPlayList>& list);

    bool Empty() const { return !m_current; }
    const PlayStep& Current() const { return *m_current; }
    // The cart the player reports: the macro itself, or the cart of the current step.
    std::shared_ptr<iCart> Cart() const;
    // The step that follows the current one, if any.
    std::optional<PlayStep> Next() const;
    // Moves on to Next.
    void Advance();
    bool GoesOnByItself() const;
    // After the last step: a macro starts again from its first step.
    void Restart();
    // The current step began to sound: a playlist's next-row arrow moves past it.
    void Started();
    // The playlist it reads, if any.
    const std::shared_ptr<iPlayList>& List() const { return m_list; }
    // Keeps the current step alone: nothing follows it any more.
    void LetGo();

private:
    static PlayStep SoundStep(const std::shared_ptr<iCart>& cart);
    void AddMacroSteps(const std::shared_ptr<iCart>& macroCart, const MacroSource& macros, int depth);
    std::optional<PlayStep> RowFrom(int row) const;

    std::optional<PlayStep> m_current;
    std::vector<PlayStep> m_steps; // a macro's steps
    std::size_t m_index = 0;
    std::shared_ptr<iCart> m_macro;
    std::shared_ptr<iPlayList> m_list;
};
