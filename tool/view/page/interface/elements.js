/** An element with properties and children; texts become text, never HTML. */
export function element(tag, properties = {}, ...children) {
  const made = Object.assign(document.createElement(tag), properties);
  made.append(...children.filter((child) => child !== null));
  return made;
}

/** Takes over whether a button that is on or off is on. */
export function setPressed(button, isOn) {
  button.setAttribute('aria-pressed', String(isOn));
}
