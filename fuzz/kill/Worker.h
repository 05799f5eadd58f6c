#pragma once

#include "edit/session/DocumentSession.h"

#include <cstdint>
#include <random>

namespace korvane::killing {

/// A user at work, the same one for the same seed: each step leaves the model in a state that does
/// not depend on when it is made.
class Worker {
  public:
    Worker(DocumentSession& session, std::uint32_t seed) : session_(session), random_(seed) {}

    void step();
    /// Ends what is running, so that the next thing can be a save.
    void finish();

  private:
    int number(int least, int most) {
        return std::uniform_int_distribution<int>(least, most)(random_);
    }
    void selectAny();
    void begin();
    void goOnDragging();
    void goOnWithMaterials();
    void cancelOptions();

    DocumentSession& session_;
    std::mt19937 random_;
    MaterialEditing* materials_ = nullptr;
    PlaneInput mouse_;
};

} // namespace korvane::killing
