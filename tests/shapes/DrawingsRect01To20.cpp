#include "shapes/Drawings.h"

namespace
{
// Plates that several shapes have, B wide and A high.
#define PLAIN_PLATE     "out0 0,0 0,A B,A B,0 0,0"
#define ROUND_PLATE     " 0,R 0,A-R cw R,A-R,R R,A B-R,A cw B-R,A-R,R B,A-R B,R cw B-R,R,R B-R,0 R,0 cw R,R,R 0,R"
#define CHAMFERED_PLATE "out0 0,Y 0,A-Y X,A B-X,A B,A-Y B,Y B-X,0 X,0 0,Y"
#define CROSS_PLATE     "out0 0,Y 0,A-Y X,A-Y X,A B-X,A B-X,A-Y B,A-Y B,Y B-X,Y B-X,0 X,0 X,Y 0,Y"
#define HOLE_C_D        "in2 D,C-Di/2 ccw D,C,Di/2 D,C-Di/2 "

// R-06 and R-07: both contours counter-clockwise as built, the outer one with its scrap on the right.
#define ROUND_WINDOW                                                                                         \
    "in2 D+Ri,C F+D-Ri,C ccw F+D-Ri,C+Ri,Ri F+D,C+Ri F+D,E+C-Ri ccw F+D-Ri,E+C-Ri,Ri F+D-Ri,E+C "            \
    "D+Ri,E+C ccw D+Ri,E+C-Ri,Ri D,E+C-Ri D,C+Ri ccw D+Ri,C+Ri,Ri D+Ri,C "
#define STRAIGHT_WINDOW "in2 D,C F+D,C F+D,E+C D,E+C D,C "
#define ROUND_OUTSIDE                                                                                        \
    "out2 sense=-1/1 R,0 B-R,0 ccw B-R,R,R B,R B,A-R ccw B-R,A-R,R B-R,A R,A ccw R,A-R,R 0,A-R 0,R "         \
    "ccw R,R,R R,0"
#define STRAIGHT_OUTSIDE "out2 sense=-1/1 0,0 B,0 B,A 0,A 0,0"

// R-11 and R-12 without their chamfers.
#define BITTEN_SQUARE  "out0 0,0 0,A E-Df/2,A ccw E,A,Df/2 E+Df/2,A B,A B,0 0,0"
#define NOTCHED_SQUARE "out0 0,0 0,A C-L/2,A C-L/2,A-P L/2+C,A-P L/2+C,A B,A B,0 0,0"

constexpr ShapeDrawing Drawings[] = {
    // name, case, checks, sane, where, outline, areas, records
    // A rounded corner takes a square less a quarter disc: (1 - pi/4) R^2.
    {"R-01", "", "2*R>=B", "2*R<A", "", "out2" ROUND_PLATE, "-(A*B-(4-pi)*R^2)", 9},
    {"R-01", "R=0", "A<0.1; B<0.1", "", "", "out0 0,0 0,B A,B A,0 0,0", "-A*B", 5},

    {"R-02", "", "A<0.1; B<0.1; C<0.1; D<0.1; R<0; Di<0", "2*R<A; 2*R<B", "", HOLE_C_D "out0" ROUND_PLATE,
     "pi*Di^2/4; -(A*B-(4-pi)*R^2)", 11},
    {"R-02", "Di=0.001", "", "2*R<A; 2*R<B", "", HOLE_C_D "out0" ROUND_PLATE, "pi*Di^2/4; -(A*B-(4-pi)*R^2)",
     11},
    {"R-02", "Di=0", "", "2*R<A; 2*R<B", "", "out0" ROUND_PLATE, "-(A*B-(4-pi)*R^2)", 9},
    {"R-02", "R=0", "A<0.1; B<0.1; C<0.1; D<0.1", "Di>0.1", "", HOLE_C_D PLAIN_PLATE, "pi*Di^2/4; -A*B", 7},
    {"R-02", "R=0; Di=0.1", "", "", "", PLAIN_PLATE, "-A*B", 5},
    {"R-02", "R=0; Di=0.1; C=0; D=-5", "", "", "", PLAIN_PLATE, "-A*B", 5},

    // A chamfer takes a right triangle.
    {"R-03", "", "A<0.1; B<0.1; X<0.1; Y<0.1", "2*X<B; 2*Y<A", "", CHAMFERED_PLATE, "-(A*B-2*X*Y)", 9},
    {"R-04", "", "A<0.1; B<0.1; Df<0; C<0.1; D<0.1; X<0.1; Y<0.1", "2*X<B; 2*Y<A", "",
     "in2 Df/2+D,C ccw D,C,Df/2 Df/2+D,C " CHAMFERED_PLATE, "pi*Df^2/4; -(A*B-2*X*Y)", 11},
    {"R-04", "Df=0", "", "2*X<B; 2*Y<A", "", CHAMFERED_PLATE, "-(A*B-2*X*Y)", 9},
    {"R-05", "", "A<0.1; B<0.1; X<0.1; Y<0.1", "2*X<B; Y<A", "", "out0 0,Y 0,A B,A B,Y B-X,0 X,0 0,Y",
     "-(A*B-X*Y)", 7},

    {"R-06", "", "A<0.1; B<0.1; R<0; C<0.1; D<0.1; E<0.1; F<0.1; Ri<0; 2*Ri>=E; 2*R>=A", "2*Ri<F; 2*R<B", "",
     ROUND_WINDOW ROUND_OUTSIDE, "E*F-(4-pi)*Ri^2; A*B-(4-pi)*R^2", 18},
    {"R-06", "R=0.001; Ri=0.001", "", "", "", ROUND_WINDOW ROUND_OUTSIDE, "E*F-(4-pi)*Ri^2; A*B-(4-pi)*R^2",
     18},
    {"R-06", "R=0", "", "2*Ri<F; 2*Ri<E", "", ROUND_WINDOW STRAIGHT_OUTSIDE, "E*F-(4-pi)*Ri^2; A*B", 14},
    {"R-06", "Ri=0", "", "2*R<A; 2*R<B", "", STRAIGHT_WINDOW ROUND_OUTSIDE, "E*F; A*B-(4-pi)*R^2", 14},
    {"R-06", "R=0; Ri=0", "", "", "", STRAIGHT_WINDOW STRAIGHT_OUTSIDE, "E*F; A*B", 10},

    // The window of R-07 stands at (D, D) and is F by E; the corners of its plate are R.
    {"R-07", "", "A<0.1; B<0.1; D<0.1; Ri<0; Re<0; 2*Ri>=A-2*D; 2*Re>=A", "2*D<B; 2*Ri<B-2*D; 2*Re<B",
     "C=D; E=A-2*D; F=B-2*D; R=Re", ROUND_WINDOW ROUND_OUTSIDE, "E*F-(4-pi)*Ri^2; A*B-(4-pi)*Re^2", 18},
    {"R-07", "Re=0", "", "2*Ri<A-2*D; 2*Ri<B-2*D", "C=D; E=A-2*D; F=B-2*D", ROUND_WINDOW STRAIGHT_OUTSIDE,
     "E*F-(4-pi)*Ri^2; A*B", 14},
    {"R-07", "Ri=0", "", "2*D<A; 2*D<B; 2*Re<A; 2*Re<B", "C=D; E=A-2*D; F=B-2*D; R=Re",
     STRAIGHT_WINDOW ROUND_OUTSIDE, "E*F; A*B-(4-pi)*Re^2", 14},

    {"R-08", "", "A<0.1; B<0.1; X<0.1; Y<0.1", "2*X<B; 2*Y<A", "", CROSS_PLATE, "-(A*B-4*X*Y)", 13},
    {"R-09", "", "A<0.1; B<0; C<0.1; D<0.1; Di<0; X<0.1; Y<0.1; A/2<=Y", "2*X<B", "", HOLE_C_D CROSS_PLATE,
     "pi*Di^2/4; -(A*B-4*X*Y)", 15},
    {"R-09", "Di=0", "", "2*X<B; 2*Y<A", "", CROSS_PLATE, "-(A*B-4*X*Y)", 13},
    {"R-10", "", "A<0.1; B<0; C<0.1; D<0.1; Di<0; B/2<=X; Y>=A", "X>0; Y>0", "",
     HOLE_C_D "out0 0,0 0,A-Y X,A-Y X,A B-X,A B-X,A-Y B,A-Y B,0 0,0", "pi*Di^2/4; -(A*B-2*X*Y)", 11},
    {"R-10", "Di=0", "", "2*X<B; Y<A", "", "out0 0,0 0,A-Y X,A-Y X,A B-X,A B-X,A-Y B,A-Y B,0 0,0",
     "-(A*B-2*X*Y)", 9},
    {"R-10", "X=0.001; Y=0.001", "", "", "", HOLE_C_D "out0 0,0 0,A-Y X,A-Y X,A B-X,A B-X,A-Y B,A-Y B,0 0,0",
     "pi*Di^2/4; -(A*B-2*X*Y)", 11},
    {"R-10", "X=0", "", "Y<A", "", HOLE_C_D PLAIN_PLATE, "pi*Di^2/4; -A*B", 7},
    {"R-10", "Y=0", "", "2*X<B", "", HOLE_C_D PLAIN_PLATE, "pi*Di^2/4; -A*B", 7},
    {"R-10", "X=-1; Y=-1", "", "", "", HOLE_C_D PLAIN_PLATE, "pi*Di^2/4; -A*B", 7},

    // Two chamfers C by D, and half a disc.
    {"R-11", "", "A<0.1; B<0.1; C<0; D<0; E<0.1; Df<0.1; Df/2>=E; Df/2+E>=B", "C<A; 2*D<B; Df/2<A", "",
     "out0 0,C 0,A E-Df/2,A ccw E,A,Df/2 E+Df/2,A B,A B,C B-D,0 D,0 0,C", "-(A*B-C*D-pi*Df^2/8)", 9},
    {"R-11", "C=0", "", "Df/2<E; Df/2+E<B", "", BITTEN_SQUARE, "-(A*B-pi*Df^2/8)", 7},
    {"R-11", "C=0.0099", "", "Df/2<E; Df/2+E<B", "", BITTEN_SQUARE, "-(A*B-pi*Df^2/8)", 7},
    {"R-11", "D=0.0099", "", "Df/2<E; Df/2+E<B", "", BITTEN_SQUARE, "-(A*B-pi*Df^2/8)", 7},
    {"R-11", "C=0.01; D=0.01", "", "Df/2<E; Df/2+E<B", "",
     "out0 0,0.01 0,A E-Df/2,A ccw E,A,Df/2 E+Df/2,A B,A B,0.01 B-0.01,0 0.01,0 0,0.01",
     "-(A*B-0.0001-pi*Df^2/8)", 9},
    {"R-12", "", "A<0.1; B<0.1; C<0.1; P<0.1; L<0.1; X<0; Y<0", "C-L/2>0; C+L/2<B; P<A; 2*X<B; Y<A", "",
     "out0 X,0 0,Y 0,A C-L/2,A C-L/2,A-P L/2+C,A-P L/2+C,A B,A B,Y B-X,0 X,0", "-(A*B-L*P-X*Y)", 11},
    {"R-12", "X=0", "", "C-L/2>0; C+L/2<B; P<A", "", NOTCHED_SQUARE, "-(A*B-L*P)", 9},
    {"R-12", "X=0.0099", "", "C-L/2>0; C+L/2<B; P<A", "", NOTCHED_SQUARE, "-(A*B-L*P)", 9},
    {"R-12", "Y=0.0099", "", "C-L/2>0; C+L/2<B; P<A", "", NOTCHED_SQUARE, "-(A*B-L*P)", 9},
    {"R-12", "X=0.01; Y=0.01", "", "C-L/2>0; C+L/2<B; P<A", "",
     "out0 0.01,0 0,0.01 0,A C-L/2,A C-L/2,A-P L/2+C,A-P L/2+C,A B,A B,0.01 B-0.01,0 0.01,0",
     "-(A*B-L*P-0.0001)", 11},

    {"R-13", "", "A<0.1; B<0.1", "", "", "out0 0,0 0,A B,0 0,0", "-A*B/2", 4},
    {"R-14", "", "A<0.1; B<0; X<0.1; Y<0.1; D<0", "B>0", "",
     "in2 X,Y-D/2 ccw X,Y,D/2 X,Y-D/2 out0 0,0 0,A B,0 0,0", "pi*D^2/4; -A*B/2", 6},
    {"R-14", "D=0", "", "", "", "out0 0,0 0,A B,0 0,0", "-A*B/2", 4},
    // The rectangle less its upper-left and lower-right triangles.
    {"R-15", "", "A<0.1; B<0.1; C<0.1; D<0.1; E<0.1; F<0.1", "C<A; D<B; E<A; F<B", "",
     "out0 0,0 0,C B-F,A B,A B,A-E D,0 0,0", "-(A*B-(A-C)*(B-F)/2-(B-D)*(A-E)/2)", 7},
    {"R-16", "", "A<0.1; B<0.1", "", "", "out0 0,0 B/2,A B,0 0,0", "-A*B/2", 4},
    {"R-17", "", "A<0.1; B<0.1; C<0.1; D<0.1", "C<A; D<B", "", "out0 0,0 0,A B-D,A B-D,A-C B,A-C B,0 0,0",
     "-(A*B-C*D)", 7},
    // The upright and the triangle on its right.
    {"R-18", "", "A<0.1; B<0.1; C<0.1; D<0.1", "C<A; D<B", "", "out0 0,0 0,A D,A D,A-C B,0 0,0",
     "-(A*D+(B-D)*(A-C)/2)", 6},
    // Two arms with half discs at their ends. What the inner fillet gives the outer corner takes.
    {"R-19", "", "A<0.1; B<0.1; C<0.1; D<0.1; R<0.1", "C+R<A; D+R<B", "",
     "out0 0,R 0,A cw D/2,A,D/2 D,A D,C+R ccw D+R,C+R,R D+R,C B,C cw B,C/2,C/2 B,0 R,0 cw R,R,R 0,R",
     "-(A*D+(B-D)*C+pi*(C^2+D^2)/8)", 9},
    {"R-20", "", "A<0.1; B<0.1; C<0.1; D<0.1; Di<0.1", "", "",
     "in2 D,C-Di/2 ccw D,C,Di/2 D,C-Di/2 in2 D,A-C-Di/2 ccw D,A-C,Di/2 D,A-C-Di/2 "
     "in2 B-D,A-C-Di/2 ccw B-D,A-C,Di/2 B-D,A-C-Di/2 in2 B-D,C-Di/2 ccw B-D,C,Di/2 B-D,C-Di/2 " PLAIN_PLATE,
     "pi*Di^2/4; pi*Di^2/4; pi*Di^2/4; pi*Di^2/4; -A*B", 13},
};
} // namespace

std::span<const ShapeDrawing> DrawingsRect01To20()
{
    return Drawings;
}
