#include "ai/computer.h"

#include "ai/pushdown_player.h"
#include "ai/state_player.h"
#include "ai/turing_player.h"
#include "maps/model.h"

void computer_act() {
    switch (machine_kind) {
        case state_machine:
            state_machine_act();
            break;
        case pushdown_machine:
            pushdown_machine_act();
            break;
        default:
            turing_machine_act();
    }
}
