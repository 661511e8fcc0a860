#include "browse/CartIDQuestion.h"
#include "foundation/Log.h"
#include <utility>

namespace CartIDQuestion {
namespace {
Asker& Installed()
{
    static Asker asker;
    return asker;
}
}

Asker Install(Asker asker)
{
    return std::exchange(Installed(), std::move(asker));
}

std::optional<QString> Ask(const Request& request)
{
    if (!Installed()) {
        LogError(QStringLiteral("CartIDQuestion"), QStringLiteral("Ask"), QStringLiteral("No cart ID dialog is installed"));
        return std::nullopt;
    }
    std::optional<QString> answer = Installed()(request);
    if (answer && answer->trimmed().isEmpty())
        return std::nullopt;
    return answer;
}
}
