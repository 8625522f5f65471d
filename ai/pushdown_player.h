#pragma once

// The computer seat on pushdown machines. Easy and normal seats play any card that fits; the hard
// one takes the card after which it can follow with the most cards of its own, while the fewest
// card values move the same stone on.

// Plays a card, draws one, or ends the turn when it has drawn already.
void pushdown_machine_act();
