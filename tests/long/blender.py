# Imports the file that is named first and writes what Blender has of it to the second.
import json
import sys

import bpy
import mathutils
import numpy

numpy.bool = bool  # the importer still calls it that


def color_of(socket):
    """The color, or the one that an image is multiplied with."""
    node = socket.links[0].from_node if socket.links else None
    if node is None:
        return list(socket.default_value)
    factors = [each for each in node.inputs if each.type == "RGBA" and not each.links]
    return list(factors[0].default_value) if factors else [1, 1, 1, 1]


def material_of(material):
    nodes = material.node_tree.nodes
    surface = next(node for node in nodes if node.type == "BSDF_PRINCIPLED").inputs
    images = [node.image for node in nodes if node.type == "TEX_IMAGE"]
    return {
        "color": color_of(surface["Base Color"])[:3],
        "alpha": surface["Alpha"].default_value,
        "roughness": surface["Roughness"].default_value,
        "metallic": surface["Metallic"].default_value,
        "images": [[*image.size, *image.pixels[:3]] for image in images],
    }


def object_of(thing):
    corners = [thing.matrix_world @ mathutils.Vector(corner) for corner in thing.bound_box]
    # There z points up.
    places = [(corner.x, corner.z, -corner.y) for corner in corners]
    return {
        "low": [min(axis) for axis in zip(*places)],
        "high": [max(axis) for axis in zip(*places)],
        "material": thing.material_slots[0].material.name,
    }


source, target = sys.argv[sys.argv.index("--") + 1 :]
bpy.ops.wm.read_factory_settings(use_empty=True)
bpy.ops.import_scene.gltf(filepath=source)
with open(target, "w") as file:
    json.dump(
        {
            "objects": {thing.name: object_of(thing) for thing in bpy.data.objects},
            "materials": {each.name: material_of(each) for each in bpy.data.materials},
        },
        file,
    )
