#pragma once
// Fixed-size tables with inclusive bounds, as the station's settings tables are declared
// (for example fields 0..30 by camera 0..8 by scene 0..4). Every access is checked: an
// index outside a dimension raises the runtime's "Subscript out of range".

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

#include "common/runtime_error.hpp"

namespace station {

struct Bounds {
    long lo;
    long hi;
    std::size_t extent() const { return static_cast<std::size_t>(hi - lo + 1); }
};

template <typename T, std::size_t N>
class Table {
public:
    explicit Table(const std::array<Bounds, N>& bounds) : bounds_(bounds) {
        std::size_t total = 1;
        for (const Bounds& b : bounds_) total *= b.extent();
        cells_.resize(total);
    }

    template <typename... Index>
    T& at(Index... index) {
        static_assert(sizeof...(Index) == N, "one index per dimension");
        return cells_[offset({static_cast<long>(index)...})];
    }
    template <typename... Index>
    const T& at(Index... index) const {
        static_assert(sizeof...(Index) == N, "one index per dimension");
        return cells_[offset({static_cast<long>(index)...})];
    }
    template <typename... Index>
    T& operator()(Index... index) { return at(index...); }
    template <typename... Index>
    const T& operator()(Index... index) const { return at(index...); }

    const Bounds& bounds(std::size_t dim) const { return bounds_[dim]; }
    void fill(const T& value) { std::fill(cells_.begin(), cells_.end(), value); }

private:
    std::size_t offset(const std::array<long, N>& index) const {
        std::size_t off = 0;
        for (std::size_t d = 0; d < N; ++d) {
            const Bounds& b = bounds_[d];
            if (index[d] < b.lo || index[d] > b.hi) throw RuntimeError::subscriptOutOfRange();
            off = off * b.extent() + static_cast<std::size_t>(index[d] - b.lo);
        }
        return off;
    }

    std::array<Bounds, N> bounds_;
    std::vector<T> cells_;
};

// One-dimensional table, the common case (camera 0..8, queue entries 0..256).
template <typename T>
class Array : public Table<T, 1> {
public:
    Array(long lo, long hi) : Table<T, 1>({Bounds{lo, hi}}) {}
    long lo() const { return this->bounds(0).lo; }
    long hi() const { return this->bounds(0).hi; }
};

}  // namespace station
