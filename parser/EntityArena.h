#ifndef OVELA_ENTITY_ARENA_H
#define OVELA_ENTITY_ARENA_H

#include <cstddef>
#include <memory>
#include <new>
#include <utility>
#include <vector>

// Where the reader places the entities it creates; not part of the library's
// interface.
namespace ovela {

// Memory for the entities of one reader, handed out at ever higher addresses.
//
// The model keeps each kind of entity in a set ordered by pointer value, and
// the store composes the arrays, numbers the tunings and lets a later tuning of
// one name replace an earlier one in that order. Entities that the reader
// creates one after the other here sit at growing addresses, so that order is
// the order of the file, the same in every process, instead of wherever the
// heap happened to put each entity.
//
// The memory of an entity returns only with the arena; destroy() runs its
// destructor, which frees what the entity holds itself.
class EntityArena {
  public:
    EntityArena() = default;
    ~EntityArena();
    EntityArena(const EntityArena&) = delete;
    EntityArena& operator=(const EntityArena&) = delete;

    // Makes room for `bytes` more of entities in one piece of memory, so that
    // they follow those made so far. The room is only address space until it
    // is used; where the address space is short, the entities go into small
    // regions as they come.
    void reserve(size_t bytes);

    template <typename T, typename... Args>
    T* make(Args&&... args) {
        return new (allocate(sizeof(T), alignof(T))) T(std::forward<Args>(args)...);
    }

    template <typename T>
    static void destroy(T* entity) {
        entity->~T();
    }

    // Destroys an entity that no set took; for std::unique_ptr.
    struct Destroy {
        template <typename T>
        void operator()(T* entity) const {
            destroy(entity);
        }
    };
    template <typename T>
    using Ptr = std::unique_ptr<T, Destroy>;

  private:
    struct Region {
        unsigned char* begin;
        size_t size;
        size_t used;
        bool mapped;  // else from malloc
    };

    void* allocate(size_t size, size_t alignment);
    // Maps a region of at least `bytes` after the last; false when the
    // address space is not there.
    bool mapRegion(size_t bytes);

    std::vector<Region> mRegions;
};

}  // namespace ovela

#endif  // OVELA_ENTITY_ARENA_H
