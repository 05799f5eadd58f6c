#pragma once

#include <memory>
#include <utility>

namespace korvane {

/// Base of what a view works out from a frame and keeps with it.
class ViewData {
  public:
    ViewData() = default;
    ViewData(const ViewData&) = delete;
    ViewData& operator=(const ViewData&) = delete;
    virtual ~ViewData() = default;
};

/// A place for view data in a record that knows nothing of views. It belongs to the object it was
/// filled for: a copy starts empty, and it takes no part in comparing records.
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

    /// The data in the slot, made where there is none. One slot is used for one type: data of
    /// another one would go.
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
