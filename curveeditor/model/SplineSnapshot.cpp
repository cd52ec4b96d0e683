// SPDX-License-Identifier: MIT
#include <curveeditor/model/SplineSnapshot.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <unordered_map>
#include <utility>

namespace curveeditor {

namespace {

using Chunk = SplineSnapshot::Chunk;
using Chunks = SplineSnapshot::Chunks;
using Points = std::vector<SplineBase::PointInfo*>;

/// Of fewer points a chunk would hardly be worth sharing; of more, much would be copied for one that has changed.
constexpr std::size_t smallestChunk = 128;
constexpr std::size_t largestChunk = 512;

/// Points have no padding, see `isSamePoint`.
const char* bytesOf(const SplineBase::PointInfo* points)
{
    return reinterpret_cast<const char*>(points);
}

/// So many points before it is compared a point is fetched, as points lie anywhere in memory.
constexpr std::ptrdiff_t fetchedAhead = 24;

void fetch([[maybe_unused]] const SplineBase::PointInfo* point)
{
#ifdef __GNUC__
    __builtin_prefetch(point);
    __builtin_prefetch(bytesOf(point) + sizeof(*point) - 1);
#endif
}

/// Whether the points from `first` on equal those of the chunk to the bit. Gathers some of them at a time, since long
/// runs of bytes are compared fastest.
bool areUnchanged(Points::const_iterator first, Points::const_iterator last, const Chunk& chunk)
{
    std::array<SplineBase::PointInfo, 16> gathered;
    for (std::size_t done = 0; done < chunk.size(); done += gathered.size()) {
        const std::size_t count = std::min(gathered.size(), chunk.size() - done);
        for (std::size_t i = 0; i < count; ++i) {
            if (last - first > fetchedAhead)
                fetch(first[fetchedAhead]);
            gathered[i] = **first++;
        }
        if (std::memcmp(bytesOf(gathered.data()), bytesOf(&chunk[done]), count * sizeof(gathered[0])) != 0)
            return false;
    }
    return true;
}

/// Divides points into chunks. Those of an earlier snapshot are found by the serials of their first points, wherever
/// they stand now.
class ChunkTaker
{
public:
    ChunkTaker(const Points& points, const Chunks& earlier) : points_(points)
    {
        for (const std::shared_ptr<Chunk>& chunk : earlier)
            earlier_.emplace(chunk->front().serial, chunk);
    }

    Chunks take()
    {
        std::size_t first = 0;
        for (std::size_t index = 0; index < points_.size();) {
            const bool mayEndHere = index == first || index - first >= smallestChunk;
            const std::shared_ptr<Chunk> chunk = mayEndHere ? earlierAt(index) : nullptr;
            if (!chunk) {
                ++index;
                continue;
            }
            copy(first, index);
            chunks_.push_back(chunk);
            first = index += chunk->size();
        }
        copy(first, points_.size());
        return std::move(chunks_);
    }

private:
    /// The earlier chunk that equals the points from `index` on.
    std::shared_ptr<Chunk> earlierAt(std::size_t index) const
    {
        const auto place = earlier_.find(points_[index]->serial);
        if (place == earlier_.end() || place->second->size() > points_.size() - index)
            return nullptr;
        const auto first = points_.begin() + std::ptrdiff_t(index);
        return areUnchanged(first, points_.end(), *place->second) ? place->second : nullptr;
    }

    /// Into chunks of their own; too few are put together with the chunk before them.
    void copy(std::size_t first, std::size_t end)
    {
        if (first < end && end - first < smallestChunk && !chunks_.empty()) {
            first -= chunks_.back()->size();
            chunks_.pop_back();
        }
        const std::size_t count = (end - first + largestChunk - 1) / largestChunk;
        for (std::size_t left = count; left > 0; --left) {
            const std::size_t size = (end - first) / left;
            auto chunk = std::make_shared<Chunk>();
            chunk->reserve(size);
            for (const std::size_t next = first + size; first < next; ++first)
                chunk->push_back(*points_[first]);
            chunks_.push_back(std::move(chunk));
        }
    }

    const Points& points_;
    std::unordered_map<std::uint32_t, std::shared_ptr<Chunk>> earlier_;
    Chunks chunks_;
};

Points pointsOf(const Chunks& chunks, std::size_t count)
{
    Points points(count);
    auto place = points.begin();
    for (const std::shared_ptr<Chunk>& chunk : chunks)
        place = std::transform(chunk->begin(), chunk->end(), place, [](auto& point) { return &point; });
    return points;
}

} // namespace

SplineSnapshot::SplineSnapshot(const SplineBase& spline, const SplineSnapshot* previous)
    : chunks_(ChunkTaker(spline.points_, previous ? previous->chunks_ : Chunks()).take()),
      spline_(pointsOf(chunks_, spline.points_.size()), spline.times_, spline.firstType, spline.lastType)
{
}

bool SplineSnapshot::isSame(const SplineSnapshot& other) const
{
    return chunks_ == other.chunks_ && spline_.times_ == other.spline_.times_ &&
           spline_.firstType == other.spline_.firstType && spline_.lastType == other.spline_.lastType;
}

} // namespace curveeditor
