#pragma once

// The computer seat on pushdown machines. Easy and normal seats play any card that fits; the hard
// one takes the card after which it can follow with the most cards of its own, while the fewest
// card values move the same stone on.

#include "rules/acts.h"

// To play a card, to draw one, or to end the turn when it has drawn already.
game_act pushdown_machine_decide();
