#include "ResourceLedger.h"

#include "AllocationFaults.h"

#include <set>
#include <tuple>

namespace KivoTest {

namespace {

using Entry = std::tuple<const void*, std::string, unsigned long long>; // owner first

std::set<Entry>& Entries() {
    static std::set<Entry> entries;
    return entries;
}

} // namespace

void Take(const char* kind, const void* owner, unsigned long long handle) {
    const WithoutAllocationFaults reliable;
    Entries().emplace(owner, kind, handle);
}

void GiveBack(const char* kind, const void* owner, unsigned long long handle) {
    const WithoutAllocationFaults reliable;
    Entries().erase({owner, kind, handle});
}

void GiveBackAllOf(const void* owner) {
    const WithoutAllocationFaults reliable;
    auto entry = Entries().lower_bound({owner, "", 0});
    while (entry != Entries().end() && std::get<0>(*entry) == owner)
        entry = Entries().erase(entry);
}

std::map<std::string, int> TakenResources() {
    std::map<std::string, int> counts;
    for (const Entry& entry : Entries())
        ++counts[std::get<1>(entry)];
    return counts;
}

} // namespace KivoTest
