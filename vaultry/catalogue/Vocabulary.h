// SPDX-License-Identifier: MIT
// The words of the configuration file, shared by the loader, the generators and front ends.
// All of them compare without regard to case.
#pragma once

#include <string_view>

namespace Tarnex {

/// @name Tile kinds
/// @{

/// The name of a kind of tile.
inline constexpr std::string_view Tile_SwCorner = "CornerSW";
inline constexpr std::string_view Tile_NwCorner = "CornerNW";
inline constexpr std::string_view Tile_NeCorner = "CornerNE";
inline constexpr std::string_view Tile_SeCorner = "CornerSE";
inline constexpr std::string_view Tile_nWall = "WallN";
inline constexpr std::string_view Tile_sWall = "WallS";
inline constexpr std::string_view Tile_eWall = "WallE";
inline constexpr std::string_view Tile_wWall = "WallW";
inline constexpr std::string_view Tile_Center = "Center";
inline constexpr std::string_view Tile_Center_2 = "Center_22";
inline constexpr std::string_view Tile_nDoorway = "DoorwayN";
inline constexpr std::string_view Tile_sDoorway = "DoorwayS";
inline constexpr std::string_view Tile_eDoorway = "DoorwayE";
inline constexpr std::string_view Tile_wDoorway = "DoorwayW";
inline constexpr std::string_view Tile_DoorwayNW_W = "DoorwayNW_W";
inline constexpr std::string_view Tile_DoorwayNE_N = "DoorwayNE_N";
inline constexpr std::string_view Tile_DoorwaySE_E = "DoorwaySE_E";
inline constexpr std::string_view Tile_DoorwaySW_S = "DoorwaySW_S";
inline constexpr std::string_view Tile_DoorwayNW_N = "DoorwayNW_N";
inline constexpr std::string_view Tile_DoorwayNE_E = "DoorwayNE_E";
inline constexpr std::string_view Tile_DoorwaySE_S = "DoorwaySE_S";
inline constexpr std::string_view Tile_DoorwaySW_W = "DoorwaySW_W";
inline constexpr std::string_view Tile_nDoorjamb = "DoorjambN";
inline constexpr std::string_view Tile_sDoorjamb = "DoorjambS";
inline constexpr std::string_view Tile_eDoorjamb = "DoorjambE";
inline constexpr std::string_view Tile_wDoorjamb = "DoorjambW";
inline constexpr std::string_view Tile_nDoor = "DoorN";
inline constexpr std::string_view Tile_sDoor = "DoorS";
inline constexpr std::string_view Tile_eDoor = "DoorE";
inline constexpr std::string_view Tile_wDoor = "DoorW";
inline constexpr std::string_view Tile_HallNS = "HallNS";
inline constexpr std::string_view Tile_HallEW = "HallEW";
inline constexpr std::string_view Tile_HallNS_2 = "HallNS_2";
inline constexpr std::string_view Tile_HallEW_2 = "HallEW_2";
inline constexpr std::string_view Tile_HallEndN = "HallEndN";
inline constexpr std::string_view Tile_HallEndS = "HallEndS";
inline constexpr std::string_view Tile_HallEndE = "HallEndE";
inline constexpr std::string_view Tile_HallEndW = "HallEndW";
inline constexpr std::string_view Tile_HallCornerNW = "HallCornerNW";
inline constexpr std::string_view Tile_HallCornerNE = "HallCornerNE";
inline constexpr std::string_view Tile_HallCornerSW = "HallCornerSW";
inline constexpr std::string_view Tile_HallCornerSE = "HallCornerSE";
inline constexpr std::string_view Tile_Hall4Way = "Hall4Way";
inline constexpr std::string_view Tile_nStairsUp = "StairsUpN";
inline constexpr std::string_view Tile_sStairsUp = "StairsUpS";
inline constexpr std::string_view Tile_eStairsUp = "StairsUpE";
inline constexpr std::string_view Tile_wStairsUp = "StairsUpW";
inline constexpr std::string_view Tile_nStairsDn = "StairsDnN";
inline constexpr std::string_view Tile_sStairsDn = "StairsDnS";
inline constexpr std::string_view Tile_eStairsDn = "StairsDnE";
inline constexpr std::string_view Tile_wStairsDn = "StairsDnW";
inline constexpr std::string_view Tile_nStairsUp_2 = "StairsUpN_2";
inline constexpr std::string_view Tile_sStairsUp_2 = "StairsUpS_2";
inline constexpr std::string_view Tile_eStairsUp_2 = "StairsUpE_2";
inline constexpr std::string_view Tile_wStairsUp_2 = "StairsUpW_2";
inline constexpr std::string_view Tile_nStairsDn_2 = "StairsDnN_2";
inline constexpr std::string_view Tile_sStairsDn_2 = "StairsDnS_2";
inline constexpr std::string_view Tile_eStairsDn_2 = "StairsDnE_2";
inline constexpr std::string_view Tile_wStairsDn_2 = "StairsDnW_2";

/// @}

/// @name Tile sets and their tiles
/// @{

/// The element of a tile set, one of its attributes or a value of one.
inline constexpr std::string_view Tile_TileSet = "TileSet";
inline constexpr std::string_view Tile_TsName = "TsName";
inline constexpr std::string_view Tile_TsType = "TsType";
inline constexpr std::string_view Tile_TsSize = "TsSize";
inline constexpr std::string_view Tile_WallThickness = "WallThickness";
inline constexpr std::string_view Tile_Room = "Room";
inline constexpr std::string_view Tile_Cave = "Cave";
inline constexpr std::string_view Tile_HalfSize = "HalfSize";
inline constexpr std::string_view Tile_QuarterSize = "QuarterSize";

/// @}

/// @name Attributes shared by several elements
/// @{

/// The name of an attribute.
inline constexpr std::string_view Attrib_Area = "Area";
inline constexpr std::string_view Attrib_Chance = "Chance";
inline constexpr std::string_view Attrib_DeltaZ = "DeltaZ";
inline constexpr std::string_view Attrib_FriendlyName = "FName";
inline constexpr std::string_view Attrib_Height = "Height";
inline constexpr std::string_view Attrib_LayoutName = "LayoutName";
inline constexpr std::string_view Attrib_Level = "Level";
inline constexpr std::string_view Attrib_Max = "Max";
inline constexpr std::string_view Attrib_Min = "Min";
inline constexpr std::string_view Attrib_ModelFile = "ModelFile";
inline constexpr std::string_view Attrib_Name = "Name";
inline constexpr std::string_view Attrib_OffsetX = "OffsetX";
inline constexpr std::string_view Attrib_OffsetY = "OffsetY";
inline constexpr std::string_view Attrib_OffsetZ = "OffsetZ";
inline constexpr std::string_view Attrib_Ratio = "Ratio";
inline constexpr std::string_view Attrib_Requires = "Requires";
inline constexpr std::string_view Attrib_Scale = "Scale";
inline constexpr std::string_view Attrib_SizeX = "SizeX";
inline constexpr std::string_view Attrib_SizeY = "SizeY";
inline constexpr std::string_view Attrib_SizeZ = "SizeZ";
inline constexpr std::string_view Attrib_Stack = "Stack";
inline constexpr std::string_view Attrib_Type = "Type";
inline constexpr std::string_view Attrib_UniqueName = "UniqueName";
inline constexpr std::string_view Attrib_Value = "Value";
inline constexpr std::string_view Attrib_Weight = "Weight";
inline constexpr std::string_view Attrib_Width = "Width";
inline constexpr std::string_view Attrib_ZRotate = "ZRotate";

/// @}

/// @name Content kinds
/// @{

/// The name of an element that describes content.
inline constexpr std::string_view Content_Armor = "Armor";
inline constexpr std::string_view Content_Clothing = "Clothing";
inline constexpr std::string_view Content_Container = "Container";
inline constexpr std::string_view Content_Creature = "Creature";
inline constexpr std::string_view Content_Furniture = "Furniture";
inline constexpr std::string_view Content_Rug = "Rug";
inline constexpr std::string_view Content_Tapestry = "Tapestry";
inline constexpr std::string_view Content_Treasure = "Treasure";
inline constexpr std::string_view Content_Weapon = "Weapon";

/// @}

/// @name Treasure subtypes
/// @{

/// The kind of things that a treasure is; armor, clothing and weapons are content kinds of their
/// own.
inline constexpr std::string_view Treasure_Armor = "Armor";
inline constexpr std::string_view Treasure_Book = "Book";
inline constexpr std::string_view Treasure_Clothing = "Clothing";
inline constexpr std::string_view Treasure_Gem = "Gem";
inline constexpr std::string_view Treasure_Gold = "Gold";
inline constexpr std::string_view Treasure_Ingredient = "Ingredient";
inline constexpr std::string_view Treasure_Misc = "Misc";
inline constexpr std::string_view Treasure_Tool = "Tool";
inline constexpr std::string_view Treasure_Weapon = "Weapon";

/// @}

/// @name Creature subtypes
/// @{

/// The kind of beings that a creature belongs to.
inline constexpr std::string_view Creature_Bird = "Bird";
inline constexpr std::string_view Creature_Creature = "Creature";
inline constexpr std::string_view Creature_Daedra = "Daedra";
inline constexpr std::string_view Creature_Fish = "Fish";
inline constexpr std::string_view Creature_Humanoid = "Humanoid";
inline constexpr std::string_view Creature_Undead = "Undead";

/// @}

/// @name Stacking
/// @{

/// Whether content may stand on other content; see Stacking.
inline constexpr std::string_view Stack_No = "No";
inline constexpr std::string_view Stack_Bottom = "Bottom";
inline constexpr std::string_view Stack_Top = "Top";
inline constexpr std::string_view Stack_Yes = "Yes";

/// @}

/// @name Layout templates
/// @{

/// An element of a layout template.
inline constexpr std::string_view Layout_Layout = "Layout";
inline constexpr std::string_view Layout_Row = "Row";
inline constexpr std::string_view Layout_Col = "Col";

/// @}

/// @name Platforms
/// @{

/// The element of a platform, or one of its pieces; the stairs are named as stair tiles are.
inline constexpr std::string_view Platform_Platform = "Platform";
inline constexpr std::string_view Platform_Floor = "Floor";
inline constexpr std::string_view Platform_Beam = "Beam";

/// @}

/// @name Themes
/// @{

/// The element of a theme, or of an item in one.
inline constexpr std::string_view Theme_Theme = "Theme";
inline constexpr std::string_view Theme_CreatureTheme = "CreatureTheme";
inline constexpr std::string_view Theme_TreasureTheme = "TreasureTheme";
inline constexpr std::string_view Theme_ThemeItem = "ThemeItem";

/// @}

/// The document element.
inline constexpr std::string_view Config_Root = "OstrelData";

} // namespace Tarnex
