#pragma once

#include <memory>
#include <utility>

namespace korvane {

/// Base of data that a view derives from a frame and keeps with it.
class ViewData {
  public:
    ViewData() = default;
    ViewData(const ViewData&) = delete;
    ViewData& operator=(const ViewData&) = delete;
    virtual ~ViewData() = default;
};

/// Holds view data in a record that knows nothing of views. The data belongs to that one object: a
/// copy starts empty, and comparing records ignores it.
class ViewSlot {
  public:
    ViewSlot() = default;
    ViewSlot(const ViewSlot& /*unused*/) {}
    ViewSlot(ViewSlot&&) noexcept = default;
    ViewSlot& operator=(const ViewSlot& other) {
        if (this != &other) {
            data_.reset();
        }
        return *this;
    }
    ViewSlot& operator=(ViewSlot&&) noexcept = default;
    ~ViewSlot() = default;
    bool operator==(const ViewSlot& /*unused*/) const { return true; }

    /// The data in the slot, made if missing. Use one type per slot: asking for another one
    /// destroys the data.
    template <class Data>
    Data& get() {
        auto* kept = dynamic_cast<Data*>(data_.get());
        if (kept == nullptr) {
            auto made = std::make_unique<Data>();
            kept = made.get();
            data_ = std::move(made);
        }
        return *kept;
    }

  private:
    std::unique_ptr<ViewData> data_;
};

} // namespace korvane
