#pragma once

#include "TestSupport.h"

#include <QRandomGenerator>

#include <functional>

namespace quenara::test {

/// Does at random what an operator does with the store: selects, edits in gestures and outside of
/// any, undoes, steps through the show, and saves if the document has a file.
class RandomHand
{
public:
    RandomHand(World &world, unsigned seed) : m_world(world), m_random(seed) {}

    /// One thing, or all of a gesture. \a inGesture is called after each update of one.
    void act(const std::function<void()> &inGesture = [] {});

private:
    int any(qsizetype count) { return m_random.bounded(int(count)); }
    void select();
    void stepShow();
    void gesture(const std::function<void()> &inGesture);

    World &m_world;
    QRandomGenerator m_random;
};

} // namespace quenara::test
