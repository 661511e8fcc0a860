#include "kernel/audio/PlayQueue.h"
#include "kernelapi/KernelError.h"
#include "kernelapi/iCart.h"
#include "kernelapi/iMacro.h"
#include "kernelapi/iMacroItem.h"
#include "kernelapi/iPlayList.h"
#include "kernelapi/iPlayListItem.h"
#include "kernelapi/iSound.h"

namespace {
// Macros inside macros are followed this deep, which also ends a macro that holds itself.
constexpr int MaxMacroDepth = 4;
}

PlayQueue PlayQueue::OfSource(const PlaySource& source, const QString& title)
{
    PlayQueue queue;
    queue.m_current = PlayStep{nullptr, source, title};
    return queue;
}

PlayQueue PlayQueue::OfCart(const std::shared_ptr<iCart>& cart, const MacroSource& macros)
{
    if (!cart)
        throw KernelError(QStringLiteral("There is no cart to load"));
    PlayQueue queue;
    switch (cart->Type()) {
    case CartType::Sound:
        queue.m_current = SoundStep(cart);
        return queue;
    case CartType::Macro:
        queue.m_macro = cart;
        queue.AddMacroSteps(cart, macros, 0);
        if (queue.m_steps.empty())
            throw KernelError(QStringLiteral("Macro %1 holds no sound to play").arg(cart->ID()));
        queue.m_current = queue.m_steps.front();
        return queue;
    case CartType::Unknown:
        throw KernelError(QStringLiteral("Cart %1 does not exist").arg(cart->ID()));
    default:
        throw KernelError(QStringLiteral("Cart %1 is a %2 cart and cannot be played").arg(cart->ID(), cart->TypeName()));
    }
}

PlayQueue PlayQueue::OfPlayList(const std::shared_ptr<iPlayList>& list)
{
    if (!list)
        throw KernelError(QStringLiteral("There is no playlist to load"));
    PlayQueue queue;
    queue.m_list = list;
    queue.m_current = queue.RowFrom(list->NextIndex());
    if (!queue.m_current)
        throw KernelError(QStringLiteral("Playlist %1 holds no sound to play from row %2").arg(list->ID()).arg(list->NextIndex()));
    return queue;
}

PlayStep PlayQueue::SoundStep(const std::shared_ptr<iCart>& cart)
{
    const std::shared_ptr<iSound> sound = cart->Sound();
    if (!sound)
        throw KernelError(QStringLiteral("Cart %1 has no sound").arg(cart->ID()));
    const QString title = cart->Title().isEmpty() ? cart->Description() : cart->Title();
    return PlayStep{cart, PlaySource{sound->FileName(), sound->FileStart(), sound->FileStop()}, title};
}

void PlayQueue::AddMacroSteps(const std::shared_ptr<iCart>& macroCart, const MacroSource& macros, int depth)
{
    if (!macros)
        throw KernelError(QStringLiteral("Macro %1 cannot be read: the kernel is closed").arg(macroCart->ID()));
    const std::shared_ptr<iMacro> macro = macros(macroCart->ID());
    for (int i = 1; macro && i <= macro->Count(); ++i) {
        const std::shared_ptr<iMacroItem> item = macro->Item(i);
        const std::shared_ptr<iCart> cart = item ? item->Cart() : nullptr;
        if (cart && cart->Type() == CartType::Sound)
            m_steps.push_back(SoundStep(cart));
        else if (cart && cart->Type() == CartType::Macro && depth < MaxMacroDepth)
            AddMacroSteps(cart, macros, depth + 1);
    }
}

// The first row from the given one on that holds a sound and is not ignored.
std::optional<PlayStep> PlayQueue::RowFrom(int row) const
{
    for (int r = std::max(row, 1); r <= m_list->Count(); ++r) {
        const std::shared_ptr<iPlayListItem> item = m_list->Item(r);
        const std::shared_ptr<iCart> cart = item->Cart();
        if (item->Ignored() || !cart || cart->Type() != CartType::Sound)
            continue;
        PlayStep step = SoundStep(cart);
        step.loop = item->Looped();
        step.row = r;
        return step;
    }
    return std::nullopt;
}

std::shared_ptr<iCart> PlayQueue::Cart() const
{
    if (m_macro)
        return m_macro;
    return m_current ? m_current->cart : nullptr;
}

std::optional<PlayStep> PlayQueue::Next() const
{
    if (m_list) {
        // The arrow may point anywhere, back too; while it still points at the current row,
        // the row after it follows.
        const int next = m_list->NextIndex();
        return RowFrom(next == m_current->row ? next + 1 : next);
    }
    if (m_index + 1 < m_steps.size())
        return m_steps[m_index + 1];
    return std::nullopt;
}

void PlayQueue::Advance()
{
    if (std::optional<PlayStep> next = Next()) {
        m_current = next;
        ++m_index;
    }
}

bool PlayQueue::GoesOnByItself() const
{
    return m_list ? m_list->Chained() : !m_steps.empty();
}

void PlayQueue::Restart()
{
    if (m_steps.empty())
        return;
    m_index = 0;
    m_current = m_steps.front();
}

void PlayQueue::Started()
{
    if (m_list && m_list->NextIndex() <= m_current->row)
        m_list->SetNextIndex(m_current->row + 1);
}

void PlayQueue::LetGo()
{
    m_list.reset();
}
