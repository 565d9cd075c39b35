#include "shapes/Drawings.h"

#include "state/ProfileElement.h"

#include <cmath>
#include <numbers>

namespace
{
// Lugs about the eye (B/2, A).
#define EYE_HOLE    "in2 B/2,A-D/2 ccw B/2,A,D/2 B/2,A-D/2 "
#define C05_OUTSIDE "out0 0,0 Ttx,Tty cw B/2,A,R Ufx,Ufy B,0 0,0"
#define C06_OUTSIDE "out0 0,0 0,C Ttx,Tty cw B/2,A,R Ufx,Ufy B,C B,0 0,0"
#define C07_OUTSIDE "out4 0,0 0,C B/2-D/2,C Ttx,Tty cw B/2,A,R Ufx,Ufy B/2+D/2,C B,C B,0 0,0"
#define D_PLATE     "out2 B/2,B B/2+A,B B/2+A,0 B/2,0 cw B/2,B/2,B/2 B/2,B"

// Chains of circles on one line: hole in the middle, holes at the ends.
#define MIDDLE_HOLE "in2 B/2+R2,R1-D1/2 ccw B/2+R2,R1,D1/2 B/2+R2,R1-D1/2 "
#define END_HOLES   "in2 R2,R1-D2/2 ccw R2,R1,D2/2 R2,R1-D2/2 in2 B+R2,R1-D2/2 ccw B+R2,R1,D2/2 B+R2,R1-D2/2 "
#define C12_OUTSIDE                                                                                          \
    "out2 Ttx,Tty cw B/2+R2,R1,R1 Ufx,Ufy Utx,Uty cw R2,R1,R2 Vfx,Vfy Vtx,Vty cw B/2+R2,R1,R1 Wfx,Wfy "      \
    "Wtx,Wty cw B+R2,R1,R2 Tfx,Tfy Ttx,Tty"
#define C12_TANGENTS                                                                                         \
    "m=B/2+R2; T=tangent(B+R2,R1,-R2,m,R1,-R1); U=tangent(m,R1,-R1,R2,R1,-R2);"                              \
    "V=tangent(R2,R1,-R2,m,R1,-R1); W=tangent(m,R1,-R1,B+R2,R1,-R2); d=B/2; k=acos((R1-R2)/d);"              \
    "t=sqrt(d^2-(R1-R2)^2)"
#define C12_AREA "-(2*t*(R1+R2)+R1^2*(pi-2*k)+2*R2^2*k)"

// C-13: the fillet circles stand a from the end circles and b from the middle one, f along the line and h beside it. They
// touch the end circles after R2 of a, the middle one after R1 of b.
#define C13_FILLETS                                                                                          \
    "s=B/2; a=R2+R3; b=R1+R3; f=(s^2+a^2-b^2)/(2*s); h=sqrt(a^2-f^2); e=R2/a; g=R1/b;"                       \
    "u=acos(f/a); v=acos((s-f)/b); m=R2+s; n=R2+B"
#define C13_OUTSIDE                                                                                          \
    "out2 m+g*(s-f),R1-g*h cw m,R1,R1 m-g*(s-f),R1-g*h ccw R2+f,R1-h,R3 R2+e*f,R1-e*h cw R2,R1,R2 "          \
    "R2+e*f,R1+e*h ccw R2+f,R1+h,R3 m-g*(s-f),R1+g*h cw m,R1,R1 m+g*(s-f),R1+g*h ccw n-f,R1+h,R3 "           \
    "n-e*f,R1+e*h cw n,R1,R2 n-e*f,R1-e*h ccw n-f,R1-h,R3 m+g*(s-f),R1-g*h"
#define C13_SANE "h>R3; f>0; s>f; v<pi/2; u>0; v>0"
#define C13_AREA "-(2*s*h-2*R3^2*(pi-u-v)+2*R2^2*(pi-u)+R1^2*(pi-2*v))"

#define C18_OUTSIDE "out4 u,A/2 B-v,A/2 cw B,0,R2 B-v,-A/2 u,-A/2 cw 0,0,R1 u,A/2"
#define C18_ROOTS   "u=sqrt(R1^2-(A/2)^2); v=sqrt(R2^2-(A/2)^2)"
#define C18_AREA    "-(R1^2*(pi-asin(A/2/R1))+R2^2*(pi-asin(A/2/R2))+A*B-A*(u+v)/2)"
#define C19_OUTSIDE                                                                                          \
    "out0 -B/2,-A/2 -B/2,A/2 -u,A/2 cw 0,0,De/2 u,A/2 B/2,A/2 B/2,-A/2 u,-A/2 cw 0,0,De/2 -u,-A/2 -B/2,-A/2"

// Twin circles: sizes l, a of entry line and entry arc.
#define TWIN_SIZES "l=abs(L); a=abs(LR)"
#define LEFT_LINE  "A/2+a,-l-a A/2+a,-a "
#define RIGHT_LINE "A/2-a,-l-a A/2-a,-a "
#define LEFT_ARCS  "ccw A/2,-a,a A/2,0 cw A/2,A/2,A/2 A/2,A "
#define RIGHT_ARCS "cw A/2,-a,a A/2,0 ccw A/2,A/2,A/2 A/2,A "
#define LEFT_HALF  "out0 " LEFT_LINE LEFT_ARCS
#define RIGHT_HALF "out0 sense=-1 " RIGHT_LINE RIGHT_ARCS
#define TWIN_HOLE  "in2 A/2,A/2-B/2 ccw A/2,A/2,B/2 A/2,A/2-B/2 "

DrawnContour Circle(std::int16_t kind, double x, double y, double cx, double cy, double r)
{
    DrawnContour circle;
    circle.Kind = kind;
    circle.Hint = 2.0;
    circle.Moves = {{x, y, true, cx, cy, r}};
    circle.EndX = x;
    circle.EndY = y;
    circle.Area = std::numbers::pi * r * std::fabs(r);
    return circle;
}

/// C-03: the first hole straight below the centre, the others counter-clockwise.
std::vector<DrawnContour> DrawFlange(const FormulaNames& names)
{
    const auto value = [&](const char* name) { return names.find(name)->second; };
    const double middle = value("A") / 2;
    const double bore = value("B") / 2;
    const double r = value("D") / 2;
    const int count = static_cast<int>(value("Nr"));
    std::vector<DrawnContour> contours;
    if (value("B") > 0.1) {
        contours.push_back(Circle(KindEnd, middle, middle - bore, middle, middle, bore));
    }
    for (int k = 0; r > 0.0 && k < count; ++k) {
        // Turned from straight down by k of count: x goes with the sine, y falls short by the cosine.
        const double turn = 2 * std::numbers::pi * k / count;
        const double x = middle + value("Df") / 2 * std::sin(turn);
        const double y = middle - value("Df") / 2 * std::cos(turn);
        contours.push_back(Circle(KindEnd, x, y - r, x, y, r));
    }
    contours.push_back(Circle(KindOuterEnd, 0.0, middle, middle, middle, -middle));
    return contours;
}

/// C-22: n chords and one of no length, without coefficients. The polygon's area is n triangles of the unit circle,
/// stretched by the half axes.
std::vector<DrawnContour> DrawEllipse(const FormulaNames& names)
{
    const auto value = [&](const char* name) { return names.find(name)->second; };
    const double halfX = value("B") / 2;
    const double halfY = value("A") / 2;
    const double chord = value("P") > 0.0 ? value("P") : 20.0;
    const double turn = 2 * std::numbers::pi;
    const double exact = turn * halfX / chord;
    double n = std::floor(exact);
    if (exact - n > 0.5 || (exact - n == 0.5 && std::fmod(n, 2.0) != 0.0)) {
        n += 1.0;
    }
    DrawnContour contour;
    contour.Kind = KindOuterEnd;
    contour.Hint = 2.0;
    contour.WithoutLines = true;
    for (int i = 0; i <= static_cast<int>(n); ++i) {
        contour.Moves.push_back({-halfX * std::cos(turn * i / n), halfY * std::sin(turn * i / n)});
    }
    contour.EndX = -halfX;
    contour.EndY = 0.0;
    contour.Area = -n / 2 * std::sin(turn / n) * halfX * halfY;
    return {contour};
}

constexpr ShapeDrawing Drawings[] = {
    // name, case, checks, sane, where, outline, areas, records
    {"C-01", "", "A<0.1", "", "", "out2 A/2,0 cw A/2,A/2,A/2 A/2,0", "-pi*A^2/4", 2},
    {"C-02", "", "A<0.1; B<0.1; A<=B", "", "", "in2 0,-B/2 ccw 0,0,B/2 0,-B/2 out2 0,-A/2 cw 0,0,A/2 0,-A/2",
     "pi*B^2/4; -pi*A^2/4", 4},
    {"C-03", "", "A<0.1; B<0; Df<0.1; D<0; Nr<1", "", "", nullptr, "", 16, DrawFlange},
    {"C-03", "B=0.1", "", "Nr>=1", "", nullptr, "", 14, DrawFlange},
    {"C-03", "B=0.1001", "", "Nr>=1", "", nullptr, "", 16, DrawFlange},
    {"C-03", "D=0", "", "Nr>=1", "", nullptr, "", 4, DrawFlange},
    {"C-03", "B=0; D=0", "", "Nr>=1", "", nullptr, "", 2, DrawFlange},
    {"C-03", "Nr=1.9", "", "", "", nullptr, "", 6, DrawFlange},

    // The eye stands d from the corner, which its tangent t touches; k is the angle between them at the eye. Quadrangle
    // below the eye, right triangle of the tangent, sector.
    {"C-04", "", "A<0.1; B<0.1; R<0.1; D<0", "R<B; R<A",
     "T=tangent(0,0,0,B-R,A,-R); d=sqrt((B-R)^2+A^2); t=sqrt(d^2-R^2); k=acos(R/d)",
     "in2 B-R,A-D/2 ccw B-R,A,D/2 B-R,A-D/2 out0 0,0 Ttx,Tty cw B-R,A,R B,A B,0 0,0",
     "pi*D^2/4; -((R+B)/2*A+R*t/2+R^2/2*(pi+atan(A/(B-R))-k))", 7},
    {"C-04", "D=0", "", "R<B; R<A",
     "T=tangent(0,0,0,B-R,A,-R); d=sqrt((B-R)^2+A^2); t=sqrt(d^2-R^2); k=acos(R/d)",
     "out0 0,0 Ttx,Tty cw B-R,A,R B,A B,0 0,0", "-((R+B)/2*A+R*t/2+R^2/2*(pi+atan(A/(B-R))-k))", 5},
    {"C-05", "", "A<0.1; B<0.1; R<0.1; D<0", "R<A",
     "T=tangent(0,0,0,B/2,A,-R); U=tangent(B/2,A,-R,B,0,0); d=sqrt(B^2/4+A^2); t=sqrt(d^2-R^2)",
     EYE_HOLE C05_OUTSIDE, "pi*D^2/4; -(A*B/2+R*t+R^2*(pi-atan(B/2/A)-acos(R/d)))", 7},
    {"C-05", "D=0", "", "R<A",
     "T=tangent(0,0,0,B/2,A,-R); U=tangent(B/2,A,-R,B,0,0); d=sqrt(B^2/4+A^2); t=sqrt(d^2-R^2)", C05_OUTSIDE,
     "-(A*B/2+R*t+R^2*(pi-atan(B/2/A)-acos(R/d)))", 5},
    {"C-06", "", "A<0.1; B<0.1; C<0.1; R<0.1; D<0", "h>R",
     "h=A-C; T=tangent(0,C,0,B/2,A,-R); U=tangent(B/2,A,-R,B,C,0); d=sqrt(B^2/4+h^2); t=sqrt(d^2-R^2)",
     EYE_HOLE C06_OUTSIDE, "pi*D^2/4; -(B*C+h*B/2+R*t+R^2*(pi-atan(B/2/h)-acos(R/d)))", 9},
    {"C-06", "D=0", "", "h>R",
     "h=A-C; T=tangent(0,C,0,B/2,A,-R); U=tangent(B/2,A,-R,B,C,0); d=sqrt(B^2/4+h^2); t=sqrt(d^2-R^2)",
     C06_OUTSIDE, "-(B*C+h*B/2+R*t+R^2*(pi-atan(B/2/h)-acos(R/d)))", 7},
    {"C-07", "", "A<0.1; B<0.1; C<0.1; D<0.1; R<0.1; Di<0", "h>R; D<B",
     "h=A-C; w=(B-D)/2; T=tangent(w,C,0,B/2,A,-R); U=tangent(B/2,A,-R,B-w,C,0); d=sqrt(D^2/4+h^2); "
     "t=sqrt(d^2-R^2)",
     "in2 B/2,A-Di/2 ccw B/2,A,Di/2 B/2,A-Di/2 " C07_OUTSIDE,
     "pi*Di^2/4; -(B*C+h*D/2+R*t+R^2*(pi-atan(D/2/h)-acos(R/d)))", 11},
    {"C-07", "Di=0", "", "h>R; D<B",
     "h=A-C; w=(B-D)/2; T=tangent(w,C,0,B/2,A,-R); U=tangent(B/2,A,-R,B-w,C,0); d=sqrt(D^2/4+h^2); "
     "t=sqrt(d^2-R^2)",
     C07_OUTSIDE, "-(B*C+h*D/2+R*t+R^2*(pi-atan(D/2/h)-acos(R/d)))", 9},

    {"C-08", "", "A<0.1; B<0.1; D<0", "", "", "in2 B/2,B/2-D/2 ccw B/2,B/2,D/2 B/2,B/2-D/2 " D_PLATE,
     "pi*D^2/4; -(A*B+pi*B^2/8)", 7},
    {"C-08", "D=0", "", "", "", D_PLATE, "-(A*B+pi*B^2/8)", 5},
    {"C-09", "", "A<0.1; B<0.1; C<0.1; D<0.1", "C>D", "e=B/2+C-D",
     "in2 e,D/2+B/2 B/2,D/2+B/2 ccw B/2,B/2,D/2 B/2,B/2-D/2 e,B/2-D/2 ccw e,B/2,D/2 e,D/2+B/2 " D_PLATE,
     "(C-D)*D+pi*D^2/4; -(A*B+pi*B^2/8)", 10},
    {"C-10", "", "A<0.1; B<0.1; C<0.1; D<0.1", "C>D/2", "e=B/2+C-D/2",
     "in0 e,D/2+B/2 B/2,D/2+B/2 ccw B/2,B/2,D/2 B/2,B/2-D/2 e,B/2-D/2 e,D/2+B/2 " D_PLATE,
     "(C-D/2)*D+pi*D^2/8; -(A*B+pi*B^2/8)", 10},

    // Two circles d apart: quadrangles behind the tangents t, and sectors up to the touching points, which stand at the angle
    // k from the line of centres.
    {"C-11", "", "B<0.1; R1<0.1; R2<0.1; D1<0; D2<0", "abs(R1-R2)<B",
     "T=tangent(B+R1,R1,-R2,R1,R1,-R1); U=tangent(R1,R1,-R1,B+R1,R1,-R2); k=acos((R1-R2)/B); "
     "t=sqrt(B^2-(R1-R2)^2)",
     "in2 R1,R1-D1/2 ccw R1,R1,D1/2 R1,R1-D1/2 in2 B+R1,R1-D2/2 ccw B+R1,R1,D2/2 B+R1,R1-D2/2 "
     "out2 Tfx,Tfy Ttx,Tty cw R1,R1,R1 Ufx,Ufy Utx,Uty cw B+R1,R1,R2 Tfx,Tfy",
     "pi*D1^2/4; pi*D2^2/4; -(t*(R1+R2)+R1^2*(pi-k)+R2^2*k)", 9},
    {"C-11", "D1=0", "", "abs(R1-R2)<B",
     "T=tangent(B+R1,R1,-R2,R1,R1,-R1); U=tangent(R1,R1,-R1,B+R1,R1,-R2); k=acos((R1-R2)/B); "
     "t=sqrt(B^2-(R1-R2)^2)",
     "in2 B+R1,R1-D2/2 ccw B+R1,R1,D2/2 B+R1,R1-D2/2 "
     "out2 Tfx,Tfy Ttx,Tty cw R1,R1,R1 Ufx,Ufy Utx,Uty cw B+R1,R1,R2 Tfx,Tfy",
     "pi*D2^2/4; -(t*(R1+R2)+R1^2*(pi-k)+R2^2*k)", 7},
    {"C-11", "D2=0", "", "abs(R1-R2)<B",
     "T=tangent(B+R1,R1,-R2,R1,R1,-R1); U=tangent(R1,R1,-R1,B+R1,R1,-R2); k=acos((R1-R2)/B); "
     "t=sqrt(B^2-(R1-R2)^2)",
     "in2 R1,R1-D1/2 ccw R1,R1,D1/2 R1,R1-D1/2 "
     "out2 Tfx,Tfy Ttx,Tty cw R1,R1,R1 Ufx,Ufy Utx,Uty cw B+R1,R1,R2 Tfx,Tfy",
     "pi*D1^2/4; -(t*(R1+R2)+R1^2*(pi-k)+R2^2*k)", 7},
    // Twice C-11, less the middle disc that both have.
    {"C-12", "", "B<0.1; R1<0.1; R2<0.1; D1<0; D2<0", "R1>R2; R1-R2<d", C12_TANGENTS,
     MIDDLE_HOLE END_HOLES C12_OUTSIDE, "pi*D1^2/4; pi*D2^2/4; pi*D2^2/4; " C12_AREA, 15},
    {"C-12", "D1=0", "", "R1>R2; R1-R2<d", C12_TANGENTS, END_HOLES C12_OUTSIDE,
     "pi*D2^2/4; pi*D2^2/4; " C12_AREA, 13},
    {"C-12", "D2=0", "", "R1>R2; R1-R2<d", C12_TANGENTS, MIDDLE_HOLE C12_OUTSIDE, "pi*D1^2/4; " C12_AREA, 11},
    // Four triangles of end centre, fillet centre, middle centre, less the fillets' sectors, and what the discs have beside
    // the triangles.
    {"C-13", "", "B<0.1; R1<0.1; R2<0.1; R3<0.1; D1<0; D2<0", C13_SANE, C13_FILLETS,
     MIDDLE_HOLE END_HOLES C13_OUTSIDE, "pi*D1^2/4; pi*D2^2/4; pi*D2^2/4; " C13_AREA, 15},
    {"C-13", "D1=0", "", C13_SANE, C13_FILLETS, END_HOLES C13_OUTSIDE, "pi*D2^2/4; pi*D2^2/4; " C13_AREA, 13},
    {"C-13", "D2=0", "", C13_SANE, C13_FILLETS, MIDDLE_HOLE C13_OUTSIDE, "pi*D1^2/4; " C13_AREA, 11},

    {"C-14", "", "A<0.1; Ri<0.1; Re<0.1", "A<359; Ri<Re", "w=0.01745329252*A; x=cos(w); y=sin(w)",
     "out0 Re,0 Ri,0 ccw 0,0,Ri x*Ri,y*Ri x*Re,y*Re cw 0,0,Re Re,0", "-(Re^2-Ri^2)/2*w", 5},
    {"C-15", "", "A<0.1; Ri<0.1; Re<0.1", "Ri<Re", "",
     "out0 0,0 0,A cw Re,A,Re 2*Re,A 2*Re,0 Ri+Re,0 Ri+Re,A ccw Re,A,Ri Re-Ri,A Re-Ri,0 0,0",
     "-(2*A*(Re-Ri)+pi/2*(Re^2-Ri^2))", 9},
    {"C-16", "", "A<0.1; B<0.1; C<0.1; Ri<0.1; Re<0.1", "Ri<Re; B<A", "",
     "out0 0,0 Re-Ri+C,0 Re-Ri+C,-A ccw Re+C,-A,Ri Ri+Re+C,-A Ri+Re+C,0 2*C+2*Re,0 2*C+2*Re,-B C+2*Re,-B "
     "C+2*Re,-A cw C+Re,-A,Re C,-A C,-B 0,-B 0,0",
     "-(2*A*(Re-Ri)+pi/2*(Re^2-Ri^2)+2*B*C)", 13},
    {"C-17", "", "B<0.1; R1<0.1; R2<0.1", "abs(R1-R2)<B",
     "T=tangent(0,-B,-R2,0,0,-R1); U=tangent(0,0,-R1,0,-B,-R2); k=acos((R1-R2)/B); t=sqrt(B^2-(R1-R2)^2)",
     "out2 Tfx,Tfy Ttx,Tty cw 0,0,R1 Ufx,Ufy Utx,Uty cw 0,-B,R2 Tfx,Tfy", "-(t*(R1+R2)+R1^2*(pi-k)+R2^2*k)",
     5},
    // Discs less the segments behind their chords, and the bar between the chords.
    {"C-18", "", "A<0.1; B<0.1; R1<0.1; R2<0.1; D1<0; D2<0", "A<2*R1; A<2*R2; u+v<B; u>0.1; v>0.1", C18_ROOTS,
     "in2 0,-D1/2 ccw 0,0,D1/2 0,-D1/2 in2 B,-D2/2 ccw B,0,D2/2 B,-D2/2 " C18_OUTSIDE,
     "pi*D1^2/4; pi*D2^2/4; " C18_AREA, 9},
    {"C-18", "D1=0", "", "A<2*R1; A<2*R2; u+v<B; u>0.1; v>0.1", C18_ROOTS,
     "in2 B,-D2/2 ccw B,0,D2/2 B,-D2/2 " C18_OUTSIDE, "pi*D2^2/4; " C18_AREA, 7},
    {"C-18", "D2=0", "", "A<2*R1; A<2*R2; u+v<B; u>0.1; v>0.1", C18_ROOTS,
     "in2 0,-D1/2 ccw 0,0,D1/2 0,-D1/2 " C18_OUTSIDE, "pi*D1^2/4; " C18_AREA, 7},
    // The bar, and the two segments beside it.
    {"C-19", "", "A<0.1; B<0.1; Di<0; De<0.1", "A<De; 2*u<B; u>0.1", "u=sqrt((De/2)^2-(A/2)^2)",
     "in2 0,-Di/2 ccw 0,0,Di/2 0,-Di/2 " C19_OUTSIDE, "pi*Di^2/4; -(A*B+De^2/2*acos(A/De)-A*u)", 11},
    {"C-19", "Di=0", "", "A<De; 2*u<B; u>0.1", "u=sqrt((De/2)^2-(A/2)^2)", C19_OUTSIDE,
     "-(A*B+De^2/2*acos(A/De)-A*u)", 9},
    // A segment of height A; the disc less two segments beyond A and B.
    {"C-20", "", "A<0.1; D<0.1; D<=A", "u>0.1", "r=D/2; y=r-A; u=sqrt(r^2-y^2)",
     "out0 -u,y cw 0,0,r u,y -u,y", "-(r^2*acos(y/r)-y*u)", 3},
    {"C-21", "", "A<0.1; B<0.1; D<0.1", "A<r; B<r; u>0.1; v>0.1", "r=D/2; u=sqrt(r^2-A^2); v=sqrt(r^2-B^2)",
     "out0 -v,B v,B cw 0,0,r u,-A -u,-A cw 0,0,r -v,B", "-(r^2*(pi-acos(A/r)-acos(B/r))+A*u+B*v)", 5},
    {"C-22", "", "", "", "", nullptr, "", 96, DrawEllipse},
    {"C-22", "P=0", "", "", "", nullptr, "", 49, DrawEllipse},
    {"C-22", "P=-5", "", "", "", nullptr, "", 49, DrawEllipse},
    // Rhombus of the centres, quadrangles behind the tangents (b1 to b4 their slants), sectors: the outer angle of the rhombus
    // turned by the slants of both tangents.
    {"C-23", "", "A<0.1; B<0.1; R1<0.1; R2<0.1; R3<0.1; R4<0.1",
     "s1>0.01; s2>0.01; s3>0.01; s4>0.01; s1<6; s2<6; s3<6; s4<6",
     "T=tangent(0,A/2,-R1,B/2,0,-R2); U=tangent(B/2,0,-R2,0,-A/2,-R3); V=tangent(0,-A/2,-R3,-B/2,0,-R4);"
     "W=tangent(-B/2,0,-R4,0,A/2,-R1); d=sqrt(A^2+B^2)/2; g=2*atan(B/A);"
     "b1=asin((R1-R2)/d); b2=asin((R2-R3)/d); b3=asin((R3-R4)/d); b4=asin((R4-R1)/d);"
     "s1=pi-g+b1-b4; s2=g+b2-b1; s3=pi-g+b3-b2; s4=g+b4-b3;"
     "q=d*(cos(b1)*(R1+R2)+cos(b2)*(R2+R3)+cos(b3)*(R3+R4)+cos(b4)*(R4+R1))/2",
     "out2 Tfx,Tfy Ttx,Tty cw B/2,0,R2 Ufx,Ufy Utx,Uty cw 0,-A/2,R3 Vfx,Vfy Vtx,Vty cw -B/2,0,R4 Wfx,Wfy "
     "Wtx,Wty "
     "cw 0,A/2,R1 Tfx,Tfy",
     "-(A*B/2+q+(R1^2*s1+R2^2*s2+R3^2*s3+R4^2*s4)/2)", 9},
    {"C-24", "", "D2e<0.1; D2i<0.1; D2e<=D2i; D1e<0.1; D1i<0.1; D1e<=D1i", "D2e<D1i", "",
     "in2 0,-D2i/2 ccw 0,0,D2i/2 0,-D2i/2 in2 sense=1/-1 0,-D2e/2 cw 0,0,D2e/2 0,-D2e/2 "
     "in2 0,-D1i/2 ccw 0,0,D1i/2 0,-D1i/2 out2 0,-D1e/2 cw 0,0,D1e/2 0,-D1e/2",
     "pi*D2i^2/4; -pi*D2e^2/4; pi*D1i^2/4; -pi*D1e^2/4", 8},

    {"C-25", "", "A<=0.01", "", TWIN_SIZES, LEFT_HALF RIGHT_HALF, "open; open", 8},
    {"C-25", "L=-10; LR=-10; Tail=-1", "", "", TWIN_SIZES, LEFT_HALF RIGHT_HALF, "open; open", 8},
    {"C-25", "Swap=1; Tail=7", "", "", TWIN_SIZES, RIGHT_HALF "A/2,A+7 " LEFT_HALF "A/2,A+7", "open; open",
     10},
    {"C-25", "L=0.0099", "", "", TWIN_SIZES, "out0 A/2+a,-a " LEFT_ARCS "out0 sense=-1 A/2-a,-a " RIGHT_ARCS,
     "open; open", 6},
    {"C-25", "LR=0", "", "", TWIN_SIZES,
     "out0 " LEFT_LINE "cw A/2,A/2,A/2 A/2,A out0 sense=-1 " RIGHT_LINE "ccw A/2,A/2,A/2 A/2,A", "open; open",
     6},
    {"C-26", "", "A<=0.01", "B<A", TWIN_SIZES, TWIN_HOLE LEFT_HALF RIGHT_HALF, "pi*B^2/4; open; open", 10},
    {"C-26", "B=0", "", "", TWIN_SIZES, LEFT_HALF RIGHT_HALF, "open; open", 8},
    {"C-26", "Swap=1; Tail=7", "", "B<A", TWIN_SIZES, TWIN_HOLE RIGHT_HALF "A/2,A+7 " LEFT_HALF "A/2,A+7",
     "pi*B^2/4; open; open", 12},
};
} // namespace

std::span<const ShapeDrawing> DrawingsCircular()
{
    return Drawings;
}
