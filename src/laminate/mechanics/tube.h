// A thin tube of round section, its wall a stack; radii are those of the wall's middle.
#pragma once

#include "laminate/mechanics/stack.h"

namespace torvane::laminate {

// What a tube is loaded with. Tension and inner pressure are positive; caps that close the tube pull at its
// wall.
struct TubeLoad {
  double pressure = 0, force = 0, torque = 0, moment = 0;
  bool closed = true;
};

// The wall's resultants by the membrane theory of shells: Nx = p r / 2 + F / (2 pi r) + M / (pi r^2) on the
// side that bending pulls, Ny = p r, Nxy = T / (2 pi r^2) (Bredt). `side` -1: the side that bending presses.
Vector3 WallLoad(const TubeLoad& load, double radius, double side = 1);

// The wall of a closed tube cannot curl: its middle surface stretches, and its curvature stays.
Deformation HeldUnder(const Stack& stack, const Vector3& load);

// Of the whole tube, with a = A^-1: EA = 2 pi r / a11, EI = pi r^3 / a11, GJ = 2 pi r^3 / a66. `hoop` is the
// hoop modulus with the thickness: 1 / a22.
struct TubeStiffness {
  double axial, bending, torsion, hoop;
};
TubeStiffness StiffnessOf(const Stack& stack, double radius);

// Radians over the length: T L / GJ.
double Twist(const Stack& stack, double radius, double torque, double length);

// Netting: the fibres alone bear, the resin only keeps them in place. arctan sqrt(Ny / Nx), degrees: at that
// angle one helical layer bears both. 54.7 for a closed tube under pressure.
double NettingAngle(const Vector3& wallLoad);

// The fibres' walls, helical and hoop, without resin. The hoop's is negative beyond the netting angle.
struct NettingWalls {
  double helical, hoop;
};
// By helical layers at the angle below 90 and hoops at 90: t = Nx / (s cos^2), (Ny - Nx tan^2) / s.
NettingWalls WallsFor(const Vector3& wallLoad, double stress, double degrees);

// The pressure at which the fibres of a closed (or open) tube reach the stress, from the walls of fibre at
// their angles: the lesser of what the axial and the hoop direction bear. An axial direction that nothing
// pulls at does not count.
double NettingPressure(const std::vector<StackedPly>& fibres, double stress, double radius, bool closed);

// The volume of the wall of a vessel: a cylinder with a half sphere at each end, `radius` inside.
double VesselWall(double radius, double length, double thickness);

}  // namespace torvane::laminate
