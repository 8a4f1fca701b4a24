#include "document/arena.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>
#include <new>

namespace tamarind::document {

namespace {

constexpr std::size_t kLargestChunk = std::size_t{1} << 20;
constexpr std::size_t kNames = 4096;
constexpr std::size_t kPlacesTried = 4;

/// Eight characters a step: names are looked up more often than anything else in loading.
std::size_t Hash(std::string_view text) {
    std::uint64_t hash = text.size();
    while (!text.empty()) {
        std::uint64_t part = 0;
        const std::size_t length = std::min(text.size(), sizeof part);
        std::memcpy(&part, text.data(), length);
        hash = (hash ^ part) * 0x9E3779B97F4A7C15u;
        hash ^= hash >> 32;
        text.remove_prefix(length);
    }
    return static_cast<std::size_t>(hash);
}

} // namespace

void* Arena::Allocate(std::size_t size, std::size_t alignment) {
    const std::size_t padding = (0 - reinterpret_cast<std::uintptr_t>(free_)) & (alignment - 1);
    if (size <= left_ && padding <= left_ - size) {
        std::byte* const place = free_ + padding;
        free_ = place + size;
        left_ -= padding + size;
        return place;
    }
    if (size > nextChunk_ / 4) {
        return NewChunk(size); // by itself, and the chunk in use stays in use
    }
    free_ = NewChunk(nextChunk_);
    left_ = nextChunk_;
    nextChunk_ = std::min(nextChunk_ * 2, kLargestChunk);
    return Allocate(size, alignment);
}

std::string_view Arena::Copy(std::string_view text) {
    if (text.empty()) {
        return {};
    }
    char* const place = static_cast<char*>(Allocate(text.size(), 1));
    std::memcpy(place, text.data(), text.size());
    return {place, text.size()};
}

std::byte* Arena::NewChunk(std::size_t size) {
    chunks_.push_back(std::make_unique_for_overwrite<std::byte[]>(size));
    return chunks_.back().get();
}

void* ArrayPool::Take(std::size_t size) {
    Room*& rooms = rooms_[static_cast<std::size_t>(std::bit_width(size - 1))];
    if (rooms == nullptr) {
        return arena_.Allocate(size, alignof(Room));
    }
    Room* const room = rooms;
    rooms = room->next;
    return room;
}

void ArrayPool::GiveBack(void* room, std::size_t size) {
    if (size >= sizeof(Room)) {
        Room*& rooms = rooms_[static_cast<std::size_t>(std::bit_width(size) - 1)];
        rooms = new (room) Room{rooms};
    }
}

std::string_view NameTable::Intern(std::string_view name) {
    if (name.empty()) {
        return {};
    }
    names_.resize(kNames);
    const std::size_t first = Hash(name);
    for (std::size_t tried = 0; tried < kPlacesTried; ++tried) {
        std::string_view& known = names_[(first + tried) % kNames];
        if (known.empty()) {
            known = arena_.Copy(name);
        }
        if (known == name) {
            return known;
        }
    }
    return arena_.Copy(name); // an unusual number of names: no longer worth a search
}

} // namespace tamarind::document
