#include "shapes/Drawings.h"

namespace
{
constexpr ShapeDrawing Drawings[] = {
    // name, case, checks, sane, where, outline, areas, records
    {"H-01", "", "D<0.1", "", "", "out2 D/2,0 ccw D/2,D/2,D/2 D/2,0", "pi*D^2/4", 2},
    {"H-02", "", "A<0.1; B<0.1; R<0", "2*R<A; 2*R<B; R>0.05", "",
     "out0 R,0 B-R,0 ccw B-R,R,R B,R B,A-R ccw B-R,A-R,R B-R,A R,A ccw R,A-R,R 0,A-R 0,R ccw R,R,R R,0",
     "A*B-(4-pi)*R^2", 9},
    {"H-02", "R=0", "", "", "", "out0 0,0 B,0 B,A 0,A 0,0", "A*B", 5},
    {"H-02", "R=0.0499", "", "", "", "out0 0,0 B,0 B,A 0,A 0,0", "A*B", 5},
    {"H-02", "R=0.05", "", "", "",
     "out0 R,0 B-R,0 ccw B-R,R,R B,R B,A-R ccw B-R,A-R,R B-R,A R,A ccw R,A-R,R 0,A-R 0,R ccw R,R,R R,0",
     "A*B-(4-pi)*R^2", 9},
    // h is half the height, a fillet begins t = R tan 30 degrees beside its corner. A rounded corner loses the quadrangle t R
    // of its tangents less a sector of 60 degrees.
    {"H-03", "", "0.8*A<R", "R>0", "h=sqrt(3)/2*A; t=R/sqrt(3)",
     "out2 -t/2,R/2 ccw t,R,R t,0 A-t,0 ccw A-t,R,R A+t/2,R/2 3/2*A-t/2,h-R/2 ccw 3/2*A-2*t,h,R "
     "3/2*A-t/2,h+R/2 "
     "A+t/2,2*h-R/2 ccw A-t,2*h-R,R A-t,2*h t,2*h ccw t,2*h-R,R -t/2,2*h-R/2 "
     "-A/2+t/2,h+R/2 ccw -A/2+2*t,h,R -A/2+t/2,h-R/2 -t/2,R/2",
     "3*h*A-6*(t*R-pi/6*R^2)", 13},
    {"H-03", "R=0.8*A", "", "", "h=sqrt(3)/2*A; t=R/sqrt(3)",
     "out2 -t/2,R/2 ccw t,R,R t,0 A-t,0 ccw A-t,R,R A+t/2,R/2 3/2*A-t/2,h-R/2 ccw 3/2*A-2*t,h,R "
     "3/2*A-t/2,h+R/2 "
     "A+t/2,2*h-R/2 ccw A-t,2*h-R,R A-t,2*h t,2*h ccw t,2*h-R,R -t/2,2*h-R/2 "
     "-A/2+t/2,h+R/2 ccw -A/2+2*t,h,R -A/2+t/2,h-R/2 -t/2,R/2",
     "3*h*A-6*(t*R-pi/6*R^2)", 13},
    {"H-03", "R=0", "", "", "h=sqrt(3)/2*A", "out2 0,0 A,0 3/2*A,h A,2*h 0,2*h -A/2,h 0,0", "3*h*A", 7},
    {"H-03", "R=-5", "", "", "h=sqrt(3)/2*A", "out2 0,0 A,0 3/2*A,h A,2*h 0,2*h -A/2,h 0,0", "3*h*A", 7},
};
} // namespace

std::span<const ShapeDrawing> DrawingsHoles()
{
    return Drawings;
}
