#pragma once

#include <cstddef>
#include <utility>
#include <vector>

namespace quillset::compiler {

/// The order that the quicksort of the later compiler's run-time library (2005 and newer) leaves equal
/// elements in. Its files can only be repeated byte by byte with that order: the sort is not stable, so four
/// records of one cell, A B C D, come out as B C D A.
///
/// How it goes, as seen in its results: up to eight elements are sorted by moving the largest to the end;
/// larger ranges are split around the median of first, middle and last, with everything equal to the pivot
/// left out of the lower part; the smaller part is sorted first.
template <class T, class Key>
class CrtSort {
public:
    /// `keyOf` gives the number by which an element is sorted.
    CrtSort(std::vector<T>& elements, Key keyOf)
        : elements_(elements)
        , key_(keyOf) {}

    void run() {
        if (elements_.size() < 2)
            return;
        std::vector<Range> waiting{{0, static_cast<Index>(elements_.size()) - 1}};
        while (!waiting.empty()) {
            const Range range = waiting.back();
            waiting.pop_back();
            if (range.high - range.low + 1 <= shortest) {
                selectLargest(range);
                continue;
            }
            const auto [lower, upper] = split(range);
            const bool lowerIsLarger = lower.high - lower.low >= upper.high - upper.low;
            push(waiting, lowerIsLarger ? lower : upper);
            push(waiting, lowerIsLarger ? upper : lower); // the last one comes first
        }
    }

private:
    using Index = std::ptrdiff_t;
    struct Range {
        Index low;
        Index high; // the last element
    };
    static constexpr Index shortest = 8;

    [[nodiscard]] auto key(Index i) const { return key_(elements_[static_cast<std::size_t>(i)]); }
    void swap(Index a, Index b) {
        std::swap(elements_[static_cast<std::size_t>(a)], elements_[static_cast<std::size_t>(b)]);
    }
    static void push(std::vector<Range>& waiting, const Range& range) {
        if (range.low < range.high)
            waiting.push_back(range);
    }

    void selectLargest(const Range& range) {
        for (Index high = range.high; high > range.low; --high) {
            Index largest = range.low;
            for (Index i = range.low + 1; i <= high; ++i)
                largest = key(i) > key(largest) ? i : largest;
            swap(largest, high);
        }
    }

    void medianOfThree(Index low, Index middle, Index high) {
        if (key(low) > key(middle))
            swap(low, middle);
        if (key(low) > key(high))
            swap(low, high);
        if (key(middle) > key(high))
            swap(middle, high);
    }

    // The first element behind `up` that belongs above the pivot; behind the range if none.
    [[nodiscard]] Index nextLarge(Index up, Index pivot, Index high) const {
        do
            ++up;
        while (up <= high && key(up) <= key(pivot));
        return up;
    }

    std::pair<Range, Range> split(const Range& range) {
        Index pivot = range.low + (range.high - range.low + 1) / 2;
        medianOfThree(range.low, pivot, range.high);
        Index up = range.low;
        Index down = range.high;
        for (;;) {
            up = nextLarge(up, pivot, range.high);
            do
                --down;
            while (down > pivot && key(down) > key(pivot));
            if (down < up)
                break;
            swap(up, down);
            if (pivot == down)
                pivot = up;
        }
        return {{range.low, endOfLower(range.low, pivot, down)}, {up, range.high}};
    }

    // Elements equal to the pivot need no more sorting.
    [[nodiscard]] Index endOfLower(Index low, Index pivot, Index down) const {
        ++down;
        if (pivot < down) {
            do
                --down;
            while (down > pivot && key(down) == key(pivot));
        }
        if (pivot >= down) {
            do
                --down;
            while (down > low && key(down) == key(pivot));
        }
        return down;
    }

    std::vector<T>& elements_;
    Key key_;
};

} // namespace quillset::compiler
