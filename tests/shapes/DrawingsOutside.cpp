#include "shapes/Drawings.h"

namespace
{
constexpr ShapeDrawing Drawings[] = {
    // name, case, checks, sane, where, outline, areas, records
    {"11", "", "p1<0.1; p2<0.1; p3<0.1", "", "", "out0 0,0 0,p1 p3,p1 p2,0 0,0", "-(p2+p3)/2*p1", 5},
    {"25", "", "p1<0.1; p2<0.1; p3<0", "", "",
     "in2 p2/2,p1/2-p3/2 ccw p2/2,p1/2,p3/2 p2/2,p1/2-p3/2 out0 0,0 0,p1 p2,p1 p2,0 0,0", "pi*p3^2/4; -p1*p2",
     7},
    {"25", "p3=0", "", "", "", "out0 0,0 0,p1 p2,p1 p2,0 0,0", "-p1*p2", 5},
    // As two circles of a link: quadrangles behind the tangents, sectors up to the touching points.
    {"36", "", "p1<0.1; p2<0.1; p3<0.1", "abs(p2-p3)<p1",
     "T=tangent(0,0,-p2,0,p1,-p3); U=tangent(0,p1,-p3,0,0,-p2); k=acos((p2-p3)/p1); t=sqrt(p1^2-(p2-p3)^2)",
     "out2 Tfx,Tfy Ttx,Tty cw 0,p1,p3 Ufx,Ufy Utx,Uty cw 0,0,p2 Tfx,Tfy", "-(t*(p2+p3)+p2^2*(pi-k)+p3^2*k)",
     5},
    // The fillets stand at (+-x, -y). Stem below them, triangles from the disc's centre to theirs less the fillets' sectors, and
    // the rest of the disc.
    {"46", "", "p1<0.1; p2<0.1; p3<0.1; p4<0.1", "p2/2<p1; y<p3",
     "x=p2/2+p4; y=sqrt((p1+p4)^2-x^2); f=p1/(p1+p4)",
     "out0 -p2/2,-p3 -p2/2,-y ccw -x,-y,p4 -x*f,-y*f cw 0,0,p1 x*f,-y*f ccw x,-y,p4 p2/2,-y p2/2,-p3 "
     "-p2/2,-p3",
     "-(p2*(p3-y)+x*y-p4^2*atan(y/x)+p1^2*(pi-atan(x/y)))", 7},
    {"50", "", "p1<0.1; p2<0.1; p3<0.1; p4<0.1", "p3<p1; p4<p2", "a=p2/2-p4/2; b=p2/2+p4/2; h=p1-p3",
     "out0 a,0 a,h 0,h 0,p1 p2,p1 p2,h b,h b,0 a,0", "-(p2*p3+p4*h)", 9},
    {"58", "", "p1<0.1; p2<0.1", "p1<p2", "r=p1/2", "out2 r,0 cw r,r,r r,p1 p2-r,p1 cw p2-r,r,r p2-r,0 r,0",
     "-(p1*(p2-p1)+pi*p1^2/4)", 5},
    {"59", "", "p1<0.1; p2<0", "", "r=p1/2; h=p2/2",
     "in0 r-h,r-h r+h,r-h r+h,r+h r-h,r+h r-h,r-h out2 r,0 cw r,r,r r,0", "p2^2; -pi*p1^2/4", 7},
    {"59", "p2=0", "", "", "", "out2 p1/2,0 cw p1/2,p1/2,p1/2 p1/2,0", "-pi*p1^2/4", 2},
    // Two segments on the common chord at x, half as long as 2 y.
    {"67", "", "p1<0.1; p2<0.1; p3<0.1", "abs(p1-p2)<p3; p3<p1+p2; y>0.1",
     "x=(p1^2-p2^2+p3^2)/(2*p3); y=sqrt(p1^2-x^2); w=p3-x", "out0 x,-y cw p3,0,p2 x,y cw 0,0,p1 x,-y",
     "-(p1^2*acos(x/p1)-x*y+p2^2*acos(w/p2)-w*y)", 3},
    {"69", "", "p1<0.1; p2<0.1; p3>89.9", "", "s=p1*tan(p3*pi/180)", "out0 0,0 s,p1 p2+s,p1 p2,0 0,0",
     "-p1*p2", 5},
    {"69", "p3=0", "", "", "", "out0 0,0 0,p1 p2,p1 p2,0 0,0", "-p1*p2", 5},
    {"69", "p3=-30", "", "", "s=-p1/sqrt(3)", "out0 0,0 s,p1 p2+s,p1 p2,0 0,0", "-p1*p2", 5},
};
} // namespace

std::span<const ShapeDrawing> DrawingsOutside()
{
    return Drawings;
}
