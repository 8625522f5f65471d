#include "rules/selection.h"

selection_record selection;
flight_record flight;
u16 stone_stack[stone_stack_size];
