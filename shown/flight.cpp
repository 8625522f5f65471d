#include "shown/flight.h"

flight_record flight;
u16 stone_stack[stone_stack_size];
