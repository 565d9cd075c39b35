#include "shapes/Drawings.h"

#include "state/ProfileElement.h"

#include <cmath>
#include <numbers>

namespace
{
#define PLAIN_PLATE "out0 0,0 0,A B,A B,0 0,0"
#define ROUND_PLATE                                                                                          \
    "out0 0,R 0,A-R cw R,A-R,R R,A B-R,A cw B-R,A-R,R B,A-R B,R cw B-R,R,R B-R,0 R,0 cw R,R,R 0,R"

// Holes of R-25; the cuts of the first and the third begin off their circles.
#define CENTRE_HOLE "in2 F,A-E+D2/2 ccw F,E,D2/2 F,A-E+D2/2 "
#define CORNER_HOLES                                                                                         \
    "in2 D,A-C-D1/2 ccw D,A-C,D1/2 D,A-C-D1/2 in2 B-C,A-C-D1/2 ccw B-D,A-C,D1/2 B-C,A-C-D1/2 "               \
    "in2 B-D,C-D1/2 ccw B-D,C,D1/2 B-D,C-D1/2 in2 D,C-D1/2 ccw D,C,D1/2 D,C-D1/2 "

// R-41: sizes l, a, r of entry line, entry arc and corners.
#define LEFT_LINE   "B/2+a,-l-a B/2+a,-a "
#define RIGHT_LINE  "B/2-a,-l-a B/2-a,-a "
#define LEFT_ARC    "ccw B/2,-a,a B/2,0 "
#define RIGHT_ARC   "cw B/2,-a,a B/2,0 "
#define LEFT_SIDE   "r,0 cw r,r,r 0,r 0,A-r cw r,A-r,r r,A B/2,A "
#define RIGHT_SIDE  "B-r,0 ccw B-r,r,r B,r B,A-r ccw B-r,A-r,r B-r,A B/2,A "
#define TWIN_CHECKS "B<=0.1; A<=0.1"
#define TWIN_SIZES  "l=abs(L); a=abs(LR); r=abs(R)"
#define LEFT_HALF   "out0 " LEFT_LINE LEFT_ARC LEFT_SIDE
#define RIGHT_HALF  "out0 sense=-1 " RIGHT_LINE RIGHT_ARC RIGHT_SIDE

/// Full turn, counter-clockwise, from (x, y) about (cx, cy).
DrawnContour Hole(double x, double y, double cx, double cy, double r)
{
    DrawnContour hole;
    hole.Kind = KindEnd;
    hole.Hint = 2.0;
    hole.Moves = {{x, y, true, cx, cy, r}};
    hole.EndX = x;
    hole.EndY = y;
    hole.Area = std::numbers::pi * r * r;
    return hole;
}

DrawnContour Polygon(std::int16_t kind, double hint, const std::vector<std::pair<double, double>>& corners,
                     double area)
{
    DrawnContour contour;
    contour.Kind = kind;
    contour.Hint = hint;
    contour.Area = area;
    for (const auto& [x, y] : corners) {
        contour.Moves.push_back({x, y});
    }
    contour.EndX = corners.front().first;
    contour.EndY = corners.front().second;
    return contour;
}

/// R-35: once round counter-clockwise from the lower left hole, each from its east point.
std::vector<DrawnContour> DrawHolePattern(const FormulaNames& names)
{
    const auto value = [&](const char* name) { return names.find(name)->second; };
    const double left = value("D");
    const double right = value("B") - value("D");
    const double low = value("C");
    const double high = value("A") - value("C");
    const double r = value("Di") / 2;
    const int columns = static_cast<int>(value("Nx"));
    const int rows = static_cast<int>(value("Ny"));
    const auto column = [&](int i) { return left + (right - left) * i / (columns - 1); };
    const auto row = [&](int j) { return low + (high - low) * j / (rows - 1); };
    std::vector<DrawnContour> contours;
    const auto add = [&](double x, double y) { contours.push_back(Hole(x + r, y, x, y, r)); };
    for (int i = 0; i < columns; ++i) {
        add(column(i), low);
    }
    for (int j = 1; j < rows; ++j) {
        add(right, row(j));
    }
    for (int i = columns - 2; i >= 0; --i) {
        add(column(i), high);
    }
    for (int j = rows - 2; j >= 1; --j) {
        add(left, row(j));
    }
    const double a = value("A");
    const double b = value("B");
    const double e = value("E") / 2;
    const double f = value("F") / 2;
    if (e > 0.0 && f > 0.0) {
        const double x = b / 2;
        const double y = a / 2;
        contours.push_back(Polygon(
            KindEnd, 2.0, {{x - f, y - e}, {x + f, y - e}, {x + f, y + e}, {x - f, y + e}}, 4 * e * f));
    }
    contours.push_back(Polygon(KindOuterEnd, 0.0, {{0, 0}, {0, a}, {b, a}, {b, 0}}, -a * b));
    return contours;
}

constexpr ShapeDrawing Drawings[] = {
    // name, case, checks, sane, where, outline, areas, records
    {"R-21", "", "A<0.1; B<0.1; C<0.1; D<0.1", "", "", "out0 0,0 D,A D+C,A B,0 0,0", "-A*(B+C)/2", 5},
    // Triangles from (B, 0): to (0, 0), (E, A), and to (E, A), (E + D, C).
    {"R-22", "", "A<0.1; B<0.1; C<0.1; D<0.1; E<0.1", "", "", "out0 0,0 E,A E+D,C B,0 0,0",
     "-(A*B/2+((B-E)*(C-A)+D*A)/2)", 5},
    // The rectangle less the notch and the triangle at (0, A).
    {"R-23", "", "A<0.1; B<0.1; C<0.1; D<0.1; E<0.1; F<0.1", "D<B; F<B; C+E<A", "",
     "out0 D,0 D,C 0,C 0,E+C B-F,A B,A B,0 D,0", "-(A*B-C*D-(A-C-E)*(B-F)/2)", 8},
    // Trapezium of the four centres, rectangle below it, quadrangles behind the slanted sides (t by R1, R2), sectors of
    // the discs (angles h below, g above), less the slot with its half disc.
    {"R-24", "", "A<0.1; B<0.1; C<0.1; D<0.1; R1<0.1; R2<0.1", "C<A; D/2<C; D+2*R1<B",
     "x=B/2+R2; w=(B-D)/2-R1; T=tangent(R2,R2,-R2,x-D/2-R1,A+R2,-R1); "
     "U=tangent(x+D/2+R1,A+R2,-R1,B+R2,R2,-R2);"
     "d=sqrt(A^2+w^2); t=sqrt(d^2-(R2-R1)^2); g=atan(A/w)-asin((R2-R1)/d); h=pi-g",
     "out0 B+R2,0 R2,0 cw R2,R2,R2 Tfx,Tfy Ttx,Tty cw x-D/2-R1,A+R2,R1 x-D/2,A+R2 x-D/2,C+R2 "
     "ccw x,C+R2,D/2 x+D/2,C+R2 x+D/2,A+R2 cw x+D/2+R1,A+R2,R1 Ufx,Ufy Utx,Uty cw B+R2,R2,R2 B+R2,0",
     "-((B+D+2*R1)/2*A+B*R2+t*(R1+R2)+R2^2*h+R1^2*(g+pi/2)-D*(A-C)-pi*D^2/8)", 11},
    {"R-25", "", "A<0.1; B<0.1; C<0.1; D<0.1; D1<0; E<0.1; F<0.1; D2<0", "", "",
     CENTRE_HOLE CORNER_HOLES PLAIN_PLATE, "pi*D2^2/4; pi*D1^2/4; pi*D1^2/4; pi*D1^2/4; pi*D1^2/4; -A*B", 15},
    {"R-25", "D1=0", "", "", "", CENTRE_HOLE PLAIN_PLATE, "pi*D2^2/4; -A*B", 7},
    {"R-25", "D2=0", "", "", "", CORNER_HOLES PLAIN_PLATE, "pi*D1^2/4; pi*D1^2/4; pi*D1^2/4; pi*D1^2/4; -A*B",
     13},
    // Each corner loses its square R by R and three quarters of a disc.
    {"R-26", "", "A<0.1; B<0.1; R<0.1", "4*R<A; 4*R<B", "",
     "out0 0,R 0,A-R ccw R,A-R,R R,A B-R,A ccw B-R,A-R,R B,A-R B,R ccw B-R,R,R B-R,0 R,0 ccw R,R,R 0,R",
     "-(A*B-(4+3*pi)*R^2)", 9},
    {"R-27", "", "A<0.1; B<0.1; R<0.1", "2*R<A; 2*R<B", "",
     "out0 0,R 0,A-R ccw 0,A,R R,A B-R,A ccw B,A,R B,A-R B,R ccw B,0,R B-R,0 R,0 ccw 0,0,R 0,R",
     "-(A*B-pi*R^2)", 9},
    {"R-28", "", "A<0.1; B<0.1; C<0.1; D<0.1; E<0.1; R<0.1; E+D>=B; A<=C", "R<A; 2*R<B", "",
     "out0 0,0 0,A-R cw R,A-R,R R,A B-R,A cw B-R,A-R,R B,A-R B,0 B-E,0 B-E,A-C D,A-C D,0 0,0",
     "-(A*B-(2-pi/2)*R^2-(B-D-E)*(A-C))", 11},
    {"R-29", "", "A<0.1; B<0.1; C<0.1; D<0.1; E<0.1; F<0.1; G<0.1; H<0.1; I<0.1; L<0.1",
     "C+L<A; F+G<A; D+E<B; I+H<B", "", "out0 D,0 0,C 0,A-L I,A B-H,A B,A-G B,F B-E,0 D,0",
     "-(A*B-(C*D+I*L+G*H+E*F)/2)", 9},
    {"R-30", "", "A<0.1; B<0.1; R<0.1; C<0.1; D<0.1; Di<0", "2*R<A; 2*R<B", "",
     "in2 D,A-C-Di/2 ccw D,A-C,Di/2 D,A-C-Di/2 in2 D,C-Di/2 ccw D,C,Di/2 D,C-Di/2 "
     "in2 B-D,A-C-Di/2 ccw B-D,A-C,Di/2 B-D,A-C-Di/2 in2 B-D,C-Di/2 ccw B-D,C,Di/2 B-D,C-Di/2 " ROUND_PLATE,
     "pi*Di^2/4; pi*Di^2/4; pi*Di^2/4; pi*Di^2/4; -(A*B-(4-pi)*R^2)", 17},
    {"R-30", "Di=0", "", "2*R<A; 2*R<B", "", ROUND_PLATE, "-(A*B-(4-pi)*R^2)", 9},
    // The bite: the triangle of (F, A), (B - E, A) and the centre, the right triangles of the touching lines (f, g to the
    // centre), and the sector that is left of the disc.
    {"R-31", "", "A<0.1; B<0.1; C<0.1; D<0.1; E<0.1; F<0.1; Ri<0.1; Re<0.1",
     "F<D; D<B-E; f>Ri; g>Ri; C+Ri<A; C>Ri; Re<A; 2*Re<B",
     "T=tangent(F,A,0,D,C,Ri); U=tangent(D,C,Ri,B-E,A,0); f=sqrt((D-F)^2+(A-C)^2); g=sqrt((B-E-D)^2+(A-C)^2);"
     "k=atan((D-F)/(A-C))+atan((B-E-D)/(A-C))+acos(Ri/f)+acos(Ri/g)",
     "out0 0,Re 0,A F,A Ttx,Tty ccw D,C,Ri Ufx,Ufy B-E,A B,A B,Re cw B-Re,Re,Re B-Re,0 Re,0 cw Re,Re,Re 0,Re",
     "-(A*B-(2-pi/2)*Re^2-(B-E-F)*(A-C)/2-Ri/2*(sqrt(f^2-Ri^2)+sqrt(g^2-Ri^2))-Ri^2*(pi-k/2))", 11},
    {"R-32", "", "A<0.1; B<0.1; C<0.1; D<0.1; E<0.1; F<0.1; G<0.1; H<0.1; I<0.1; R1<0.1; R2<0.1; R3<0.1",
     "H+R3<I; I+R2+R3<A; I+R1+R2<B; E+R1<I; C+G<A; D+F<B", "",
     "out0 0,C 0,A-G H,A I-R3,A cw I-R3,A-R3,R3 I,A-R3 I,R2+I ccw R2+I,R2+I,R2 R2+I,I B-R1,I "
     "cw B-R1,I-R1,R1 B,I-R1 B,E B-F,0 D,0 0,C",
     "-(A*I+(B-I)*I-(C*D+G*H+E*F)/2+(1-pi/4)*(R2^2-R1^2-R3^2))", 13},
    {"R-33", "", "A<0.1; B<0.1; C<0.1; D<0.1; R1<0.1; R2<0.1", "C+R1<A; R2<A; R1+R2<B; D<B", "",
     "out0 0,C 0,A-R1 cw R1,A-R1,R1 R1,A B-R2,A cw B-R2,A-R2,R2 B,A-R2 B,0 D,0 0,C",
     "-(A*B-C*D/2-(1-pi/4)*(R1^2+R2^2))", 8},
    // Flanges and web; eight outer corners, four inner ones.
    {"R-34", "", "A<0.1; B<0.1; C<0.1; D<0.1; E<0.1; Re<0.1; Ri<0.1; Ri+Re>=B/2-E/2",
     "2*Re<C; 2*Re<D; C+D+2*Ri<A", "w=B/2-E/2; v=B/2+E/2; h=A-D",
     "out4 0,Re 0,C-Re cw Re,C-Re,Re Re,C w-Ri,C ccw w-Ri,C+Ri,Ri w,C+Ri w,h-Ri ccw w-Ri,h-Ri,Ri w-Ri,h Re,h "
     "cw Re,h+Re,Re 0,h+Re 0,A-Re cw Re,A-Re,Re Re,A B-Re,A cw B-Re,A-Re,Re B,A-Re B,h+Re cw B-Re,h+Re,Re "
     "B-Re,h "
     "v+Ri,h ccw v+Ri,h-Ri,Ri v,h-Ri v,C+Ri ccw v+Ri,C+Ri,Ri v+Ri,C B-Re,C cw B-Re,C-Re,Re B,C-Re B,Re "
     "cw B-Re,Re,Re B-Re,0 Re,0 cw Re,Re,Re 0,Re",
     "-(B*(C+D)+E*(A-C-D)+(4*Ri^2-8*Re^2)*(1-pi/4))", 25},
    {"R-35", "", "A<0.1; B<0.1; C<0.1; D<0.1; E<0; F<0; Di<0.1; Nx<1; Ny<1", "Nx>=2; Ny>=2", "", nullptr, "",
     30, DrawHolePattern},
    {"R-35", "E=0", "", "Nx>=2; Ny>=2", "", nullptr, "", 25, DrawHolePattern},
    {"R-35", "E=0.001; F=0.001", "", "Nx>=2; Ny>=2", "", nullptr, "", 30, DrawHolePattern},
    {"R-35", "F=0", "", "Nx>=2; Ny>=2", "", nullptr, "", 25, DrawHolePattern},
    {"R-35", "Nx=2.9; Ny=2", "", "", "", nullptr, "", 18, DrawHolePattern},
    // h is half the height. A fillet begins t = R tan 30 degrees beside its corner, its centre lies 2 t from the corner. A
    // rounded corner loses the quadrangle t R of its tangents less a sector of 60 degrees.
    {"R-36", "", "A<R; A<0.1; R<0", "R<0.86*A; R>0", "h=sqrt(3)/2*A; t=R/sqrt(3)",
     "out2 t/2,R/2 cw -t,R,R -t,0 -A+t,0 cw -A+t,R,R -A-t/2,R/2 -3/2*A+t/2,h-R/2 cw -3/2*A+2*t,h,R "
     "-3/2*A+t/2,h+R/2 "
     "-A-t/2,2*h-R/2 cw -A+t,2*h-R,R -A+t,2*h -t,2*h cw -t,2*h-R,R t/2,2*h-R/2 "
     "A/2-t/2,h+R/2 cw A/2-2*t,h,R A/2-t/2,h-R/2 t/2,R/2",
     "-(3*h*A-6*(t*R-pi/6*R^2))", 13},
    {"R-36", "R=0.001", "", "", "h=sqrt(3)/2*A; t=R/sqrt(3)",
     "out2 t/2,R/2 cw -t,R,R -t,0 -A+t,0 cw -A+t,R,R -A-t/2,R/2 -3/2*A+t/2,h-R/2 cw -3/2*A+2*t,h,R "
     "-3/2*A+t/2,h+R/2 "
     "-A-t/2,2*h-R/2 cw -A+t,2*h-R,R -A+t,2*h -t,2*h cw -t,2*h-R,R t/2,2*h-R/2 "
     "A/2-t/2,h+R/2 cw A/2-2*t,h,R A/2-t/2,h-R/2 t/2,R/2",
     "-(3*h*A-6*(t*R-pi/6*R^2))", 13},
    {"R-36", "R=0", "", "", "h=sqrt(3)/2*A", "out2 0,0 -A,0 -3/2*A,h -A,2*h 0,2*h A/2,h 0,0", "-3*h*A", 7},
    // Circles 3 (C, A), 2 (B, D - A), 1 (0, 0). The triangle of the centres, quadrangles behind the tangents, sectors: the
    // outer angle of the triangle turned by the slants of both tangents.
    {"R-37", "", "A<0.1; B<0.1; D<0.1; R1<0.1; R2<0.1; R3<0.1",
     "k>0; s1>0; s2>0; s3>0; s1<2*pi; s2<2*pi; s3<2*pi",
     "e=D-A; T=tangent(C,A,-R3,B,e,-R2); U=tangent(B,e,-R2,0,0,-R1); V=tangent(0,0,-R1,C,A,-R3);"
     "a=sqrt((B-C)^2+(e-A)^2); b=sqrt(B^2+e^2); c=sqrt(C^2+A^2); k=(B*A-C*e)/2;"
     "a1=acos((b^2+c^2-a^2)/(2*b*c)); a2=acos((a^2+b^2-c^2)/(2*a*b)); a3=acos((a^2+c^2-b^2)/(2*a*c));"
     "s1=pi-a1+asin((R1-R2)/b)+asin((R1-R3)/c); s2=pi-a2+asin((R2-R1)/b)+asin((R2-R3)/a);"
     "s3=pi-a3+asin((R3-R1)/c)+asin((R3-R2)/a);"
     "q=(sqrt(a^2-(R2-R3)^2)*(R2+R3)+sqrt(b^2-(R1-R2)^2)*(R1+R2)+sqrt(c^2-(R1-R3)^2)*(R1+R3))/2",
     "out2 Tfx,Tfy Ttx,Tty cw B,e,R2 Ufx,Ufy Utx,Uty cw 0,0,R1 Vfx,Vfy Vtx,Vty cw C,A,R3 Tfx,Tfy",
     "-(k+q+(R1^2*s1+R2^2*s2+R3^2*s3)/2)", 7},
    {"R-38", "", "A<0.1; B<0.1; C<0.1", "", "", "out0 0,0 B/2-C/2,A B/2+C/2,A B,0 0,0", "-A*(B+C)/2", 5},
    {"R-39", "", "A<0.1; B<0.1; X<0; Y<0; L<0.1", "X<A; Y<B", "",
     "out0 sense=0 0,0 0,L 0,B+L-Y X,B+L A,B+L 0,L A-X,L A,Y+L A,B+2*L X,B+2*L 0,Y+B+2*L 0,2*B+2*L A,B+2*L "
     "A,2*B-Y+2*L A-X,2*B+2*L 0,2*B+2*L",
     "open", 16},
    {"R-39", "X=0.001; Y=0.001", "", "", "",
     "out0 sense=0 0,0 0,L 0,B+L-Y X,B+L A,B+L 0,L A-X,L A,Y+L A,B+2*L X,B+2*L 0,Y+B+2*L 0,2*B+2*L A,B+2*L "
     "A,2*B-Y+2*L A-X,2*B+2*L 0,2*B+2*L",
     "open", 16},
    {"R-39", "X=0", "", "", "",
     "out0 sense=0 0,0 0,L 0,B+L A,B+L 0,L A,L A,B+2*L 0,B+2*L 0,2*B+2*L A,B+2*L A,2*B+2*L 0,2*B+2*L", "open",
     12},
    {"R-39", "Y=0", "", "", "",
     "out0 sense=0 0,0 0,L 0,B+L A,B+L 0,L A,L A,B+2*L 0,B+2*L 0,2*B+2*L A,B+2*L A,2*B+2*L 0,2*B+2*L", "open",
     12},
    {"R-40", "", "B<=0.1; A<=0.1", "", "", "out0 B/2,-L B/2,0 0,0 0,A B/2,A B/2,0 B,0 B,A B/2,A", "open", 9},
    {"R-40", "Offset=3", "", "", "",
     "out0 B/2+3,-L-3 B/2+3,-3 -3,-3 -3,A+3 B/2+3,A+3 B/2+3,-3 9+B,-3 9+B,A+3 B/2+3,A+3", "open", 9},
    {"R-40", "L=0; Offset=3", "", "", "",
     "out0 B/2+3,-3 -3,-3 -3,A+3 B/2+3,A+3 B/2+3,-3 9+B,-3 9+B,A+3 B/2+3,A+3", "open", 8},
    {"R-40", "L=-0.0099", "", "", "", "out0 B/2,0 0,0 0,A B/2,A B/2,0 B,0 B,A B/2,A", "open", 8},
    {"R-40", "L=-0.01", "", "", "", "out0 B/2,0.01 B/2,0 0,0 0,A B/2,A B/2,0 B,0 B,A B/2,A", "open", 9},
    {"R-41", "", TWIN_CHECKS, "2*R<A; 2*R<B", TWIN_SIZES, LEFT_HALF RIGHT_HALF, "open; open", 16},
    {"R-41", "R=-20; L=-10; LR=-5; Tail=-7", "", "A>40; B>40", TWIN_SIZES, LEFT_HALF RIGHT_HALF, "open; open",
     16},
    {"R-41", "Swap=1", "", "2*R<A; 2*R<B", TWIN_SIZES, RIGHT_HALF LEFT_HALF, "open; open", 16},
    {"R-41", "Swap=-0.5; Tail=7", "", "2*R<A; 2*R<B", TWIN_SIZES, RIGHT_HALF "B/2,A+7 " LEFT_HALF "B/2,A+7",
     "open; open", 18},
    {"R-41", "L=0", "", "2*R<A; 2*R<B", TWIN_SIZES,
     "out0 B/2+a,-a " LEFT_ARC LEFT_SIDE "out0 sense=-1 B/2-a,-a " RIGHT_ARC RIGHT_SIDE, "open; open", 14},
    {"R-41", "L=0.0099", "", "2*R<A; 2*R<B", TWIN_SIZES,
     "out0 B/2+a,-a " LEFT_ARC LEFT_SIDE "out0 sense=-1 B/2-a,-a " RIGHT_ARC RIGHT_SIDE, "open; open", 14},
    {"R-41", "L=0.01", "", "2*R<A; 2*R<B", TWIN_SIZES, LEFT_HALF RIGHT_HALF, "open; open", 16},
    {"R-41", "LR=0", "", "2*R<A; 2*R<B", TWIN_SIZES,
     "out0 " LEFT_LINE LEFT_SIDE "out0 sense=-1 " RIGHT_LINE RIGHT_SIDE, "open; open", 14},
    {"R-41", "LR=0.001", "", "2*R<A; 2*R<B", TWIN_SIZES, LEFT_HALF RIGHT_HALF, "open; open", 16},
    {"R-41", "L=0; LR=0", "", "2*R<A; 2*R<B", TWIN_SIZES,
     "out0 B/2,0 " LEFT_SIDE "out0 sense=-1 B/2,0 " RIGHT_SIDE, "open; open", 12},
    {"R-41", "R=0", "", "", TWIN_SIZES,
     "out0 " LEFT_LINE LEFT_ARC "0,0 0,A B/2,A out0 sense=-1 " RIGHT_LINE RIGHT_ARC "B,0 B,A B/2,A",
     "open; open", 12},
};
} // namespace

std::span<const ShapeDrawing> DrawingsRect21To41()
{
    return Drawings;
}
