/** Has each menu open below its button, or above it where there is more room. */
export function followMenus(page) {
  for (const menu of page.querySelectorAll('.menu-list')) {
    const button = page.querySelector(`[popovertarget=${menu.id}]`);
    menu.addEventListener('toggle', ({newState}) => {
      if (newState !== 'open') return;
      const below = button.getBoundingClientRect();
      const {offsetHeight, offsetWidth} = menu;
      const isLow = below.bottom + offsetHeight > innerHeight;
      menu.style.inset = 'auto';
      menu.style.top = `${isLow ? below.top - offsetHeight - 4 : below.bottom + 4}px`;
      menu.style.left = `${Math.max(Math.min(below.left, innerWidth - offsetWidth - 8), 8)}px`;
      menu.querySelector('button').focus();
    });
  }
}
