// Feeds arbitrary text as catalogue SQL to both dialects (statement and criteria) and to the
// select analysis of recordsets. A text may be refused with KernelError; anything else must
// come back, and a translation must itself be well formed (every quote closed).
#include "foundation/db/SqlDialect.h"
#include "foundation/db/SqlShape.h"
#include "foundation/db/SqlTokenizer.h"
#include "kernelapi/KernelError.h"
#include <cstdint>
#include <cstdlib>

namespace {
void CheckWellFormed(const QString& translated)
{
    try {
        SqlTokenizer::Tokenize(translated);
    } catch (const KernelError&) {
        std::abort(); // a translation left a quote, bracket or date open
    }
}

void Translate(const SqlDialect& dialect, const QString& sql)
{
    try {
        CheckWellFormed(dialect.Translate(sql));
        CheckWellFormed(dialect.TranslateCriteria(sql));
    } catch (const KernelError&) {
        // refused input: the expected answer to a malformed text
    }
}

void Analyse(const QString& sql)
{
    try {
        const SqlShape shape = SqlShape::Of(sql);
        SqlShape::Of(shape.WithCondition(QStringLiteral("ID = 'X'")));
        if (shape.Updatable() && shape.Table().isEmpty())
            std::abort(); // an updatable select names its table
    } catch (const KernelError&) {
    }
}
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const auto sqlite = SqlDialect::For(SqlDialect::Engine::SQLite);
    static const auto postgres = SqlDialect::For(SqlDialect::Engine::PostgreSQL);
    const QString sql = QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    Translate(*sqlite, sql);
    Translate(*postgres, sql);
    Analyse(sql);
    return 0;
}
