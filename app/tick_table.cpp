#include "app/tick_table.hpp"

#include "app/station.hpp"

namespace station {

std::array<StationTick, 5> stationTicks(Station& station) {
    Station* s = &station;
    return {{
        {station.link.Timer1, [s] { s->Timer1_Timer(); }},
        {station.link.Timer2, [s] { s->Timer2_Timer(); }},
        {station.link.Timer3, [s] { s->Timer3_Timer(); }},
        {station.form1.Timer4, [s] { s->Timer4_Timer(); }},
        {station.form6.Timer1, [s] { s->Form6Timer_Timer(); }},
    }};
}

}  // namespace station
