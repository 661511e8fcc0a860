#include "shell/Form.h"
#include <gtest/gtest.h>

namespace {

// A child that emits as it goes, as a focused edit does when its window is deleted.
class RenamedWhenGone : public QObject {
public:
    using QObject::QObject;
    ~RenamedWhenGone() override { setObjectName(QStringLiteral("gone")); }
};

struct Witness {
    bool formGone = false;
    bool reachedAfterwards = false;
};

class WatchingForm : public Form {
public:
    explicit WatchingForm(Witness& witness)
        : Form(QStringLiteral("WatchingForm"))
        , m_witness(witness)
    {
        auto* child = new RenamedWhenGone(this);
        connect(child, &QObject::objectNameChanged, this, [this] { ChildRenamed(); });
    }
    ~WatchingForm() override { m_witness.formGone = true; }

private:
    void ChildRenamed() { m_witness.reachedAfterwards = m_witness.formGone; }
    Witness& m_witness;
};

}

TEST(FormDestruction, ChildrenEmittingWhileTheFormGoesReachNothingOfIt)
{
    Witness witness;
    delete new WatchingForm(witness);
    EXPECT_TRUE(witness.formGone);
    EXPECT_FALSE(witness.reachedAfterwards);
}
