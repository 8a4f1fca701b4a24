#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

namespace tamarind::document {

/// Memory that grows in large steps and is given back all at once. What is placed in it is never destroyed.
class Arena {
public:
    /// `alignment` is a power of two.
    [[nodiscard]] void* Allocate(std::size_t size, std::size_t alignment);
    /// A lasting copy. An empty text has no place at all (a null view).
    [[nodiscard]] std::string_view Copy(std::string_view text);

private:
    [[nodiscard]] std::byte* NewChunk(std::size_t size);

    std::vector<std::unique_ptr<std::byte[]>> chunks_;
    std::byte* free_ = nullptr;
    std::size_t left_ = 0;
    std::size_t nextChunk_ = 4096;
};

/// Room for arrays that grow: the room of an outgrown array serves the next one of that size.
class ArrayPool {
public:
    explicit ArrayPool(Arena& arena) : arena_(arena) {}

    /// At least `size` bytes, which is not 0, aligned for pointers.
    [[nodiscard]] void* Take(std::size_t size);
    void GiveBack(void* room, std::size_t size);

private:
    struct Room {
        Room* next;
    };
    Arena& arena_;
    std::array<Room*, 64> rooms_{}; ///< by the power of two that their size reaches
};

/// Keeps one copy of each of the few names that a document repeats all the time.
class NameTable {
public:
    explicit NameTable(Arena& arena) : arena_(arena) {}

    [[nodiscard]] std::string_view Intern(std::string_view name);

private:
    Arena& arena_;
    std::vector<std::string_view> names_;
};

} // namespace tamarind::document
