#include "maps/nimbers.h"

#include <algorithm>
#include <cassert>

#include "base/dyn_array.h"
#include "base/message.h"
#include "maps/model.h"

// A depth-first search with an explicit stack: the state on top is settled when all its successors
// are, else those that are not go on top of it and it waits. A state without a way out is settled
// at once, so on a map without cycles every state is settled in the end, after all it leads to;
// that is the definition. A state can be pushed once for every transition into it, and the budget
// bounds the steps; a state that comes up to wait a second time was reached from itself, and its
// cycle could only use up the budget.

namespace {

constexpr i64 step_budget = 0x100001;
constexpr i64 transition_limit = 1'000'000;  // the search of more could outgrow the frame arena

// The existing successors of every state, in the order of the transitions: those of state s are
// targets[first[s]] up to targets[first[s + 1]].
struct successor_lists {
    u32* first;
    u16* targets;
};

successor_lists successors_collect(i64 state_count) {
    successor_lists lists = {frame_array<u32>(state_count + 2, 0), nullptr};
    u32* next = lists.first + 1;  // next[s]: where the next successor of s goes
    u32 total = 0;
    for (const transition& arc : game_map.transitions) {
        if (transition_exists(arc)) {
            next[arc.from + 1] += 1;
            total += 1;
        }
    }
    for (i64 s = 0; s < state_count; ++s) {
        next[s + 1] += next[s];
    }
    lists.targets = frame_array<u16>(total, 0);
    for (const transition& arc : game_map.transitions) {
        if (transition_exists(arc)) {
            lists.targets[next[arc.from]] = arc.to;
            next[arc.from] += 1;
        }
    }
    return lists;
}

// The smallest value that no successor of `state` has, `nimber_limit` when all are taken. When
// some successors are unknown yet, they are pushed and the answer is -1.
i64 excluded_value(const successor_lists& lists, u16 state, dyn_array<u16>& stack) {
    assert(state_exists(state));
    bool present[nimber_limit] = {};
    bool pending = false;
    for (u32 i = lists.first[state]; i < lists.first[state + 1]; ++i) {
        u16 successor = lists.targets[i];
        u8 nimber = game_map.nimbers[successor];
        if (nimber == no_nimber) {
            dyn_array_push(stack, successor);
            pending = true;
        } else {
            assert(nimber < nimber_limit);
            present[nimber] = true;
        }
    }
    if (pending) {
        return -1;
    }
    i64 value = 0;
    while (value < nimber_limit && present[value]) {
        value += 1;
    }
    return value;
}

void nimbers_forget() {
    game_map.nimber_count = game_map.states.count;
    bool fits = game_map.nimber_count <= game_map.nimber_capacity;
    if (!fits || arena_has_plenty()) {
        game_map.nimber_capacity =
            fits ? game_map.nimber_count
                 : std::max(game_map.nimber_count, 2 * game_map.nimber_capacity);
        i64 bytes = game_map.nimber_capacity;
        game_map.nimbers = static_cast<u8*>(arena_alloc(arena_persistent, bytes));
    }
    for (i64 s = 0; s < game_map.nimber_count; ++s) {
        game_map.nimbers[s] = no_nimber;
    }
}

// Settles every state on the stack; false when the search has to give up. On a cycle it ends at
// once. As no state waits three times, the stack stays in the order of the map's states and
// transitions.
bool search(const successor_lists& lists, dyn_array<u16>& stack) {
    u8* waited = per_state<u8>(0);
    for (i64 budget = step_budget; stack.count > 0;) {
        budget -= 1;
        if (budget == 0) {
            return false;
        }
        u16 state = stack[stack.count - 1];
        if (game_map.nimbers[state] != no_nimber) {
            stack.count -= 1;
            continue;
        }
        i64 value = excluded_value(lists, state, stack);
        if (value == nimber_limit || (value < 0 && waited[state])) {
            return false;
        }
        if (value < 0) {
            waited[state] = 1;
        } else {
            game_map.nimbers[state] = static_cast<u8>(value);
            stack.count -= 1;
        }
    }
    return true;
}

// Settles all states; false when the search gives up.
bool states_settle() {
    successor_lists lists = successors_collect(named_state_count());
    dyn_array<u16> stack = {};
    stack.arena_id = arena_frame;
    for (i64 s = 0; s < named_state_count(); ++s) {
        dyn_array_push(stack, static_cast<u16>(s));
    }
    return search(lists, stack);
}

}  // namespace

void nimbers_compute() {
    nimbers_forget();
    if (game_map.transitions.count > transition_limit || !states_settle()) {
        message_write({"failed to calculate nimbers!\n"});
    }
}
