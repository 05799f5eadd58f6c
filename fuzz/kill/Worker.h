#pragma once

#include "edit/session/DocumentSession.h"

#include <cstdint>
#include <random>

namespace korvane::killing {

/// Simulates a user. The same seed leads to the same states of the model, whenever the steps are
/// made.
class Worker {
  public:
    Worker(DocumentSession& session, std::uint32_t seed) : session_(session), random_(seed) {}

    void step();
    /// Ends a drag or the material editor, so that a save can follow.
    void finish();

  private:
    int number(int least, int most) {
        return std::uniform_int_distribution<int>(least, most)(random_);
    }
    void selectAny();
    void begin();
    void keepDragging();
    void keepEditingMaterials();
    void cancelOptions();

    DocumentSession& session_;
    std::mt19937 random_;
    MaterialEditing* materials_ = nullptr;
    PlaneInput mouse_;
};

} // namespace korvane::killing
